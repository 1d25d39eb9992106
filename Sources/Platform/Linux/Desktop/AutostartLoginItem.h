#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include "LoginItem.h"

namespace tessel {

/// The login item as an autostart entry (freedesktop.org, Desktop Application Autostart). Every question is
/// answered from the files as they are at that moment: desktops and users change them, too.
class AutostartLoginItem final : public LoginItem {
public:
    /// Where entries are looked for, and what they start.
    struct Surroundings {
        QString userDirectory;         ///< The only one that is written to.
        QStringList systemDirectories; ///< The most important one first.
        QStringList desktops;          ///< The names of the running desktop (`XDG_CURRENT_DESKTOP`).
        QString program;               ///< The absolute path of this program.
    };

    /// This process's. A `QCoreApplication` must exist.
    static Surroundings standardSurroundings();

    explicit AutostartLoginItem(Surroundings surroundings);

    LoginItemStatus status() const override;
    /// Writes the user's entry, whole or not at all, in place of whatever was there.
    bool registerItem() override;
    /// Removes the user's entry. Where one of the system would start the program all the same, the user's
    /// hides it.
    bool unregisterItem() override;

private:
    QString userEntry() const;
    bool startsProgram(const QStringList& directories) const;
    bool isInForce(const QString& path) const;

    Surroundings surroundings_;
};

} // namespace tessel
