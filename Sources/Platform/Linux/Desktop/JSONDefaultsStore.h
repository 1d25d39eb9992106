#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <functional>

#include "DefaultsStore.h"
#include "Desktop/ValuesWriter.h"
#include "Desktop/WholeFile.h"

namespace tessel {

/// The settings as one flat JSON object (RFC 8259) in a file that its user may read and edit.
///
/// The file is read once, at the start. A value that is set counts at once and returns at once; it is written
/// on a thread of its own, together with what is set until that comes to it, and a disk that hangs holds up
/// nothing but the end. Every write reads the file again first, so that what the user has edited meanwhile
/// stays, and replaces it atomically. A damaged file is kept aside under another name and never destroyed;
/// until something is written there is then no settings file. A file that cannot be written leaves the values
/// in force for this process.
class JSONDefaultsStore final : public DefaultsStore {
public:
    /// `settings.json` in the program's directory below `$XDG_CONFIG_HOME` (XDG Base Directory).
    static QString standardPath();
    /// `state.json` in the program's directory below `$XDG_STATE_HOME`: what the program remembers of its own
    /// doings and nobody sets.
    static QString statePath();

    /// Replaces the file's content; called on the thread that writes.
    using WriteFile = std::function<void(const QString& path, const QByteArray& content)>;

    explicit JSONDefaultsStore(const QString& path, WriteFile writeFile = writeWholeFile);
    /// Returns when everything that has been set is on the disk, or could not be written.
    ~JSONDefaultsStore() override = default;
    JSONDefaultsStore(const JSONDefaultsStore&) = delete;
    JSONDefaultsStore& operator=(const JSONDefaultsStore&) = delete;

    std::optional<std::string> string(std::string_view key) const override;
    std::optional<double> number(std::string_view key) const override;
    void setString(std::string_view key, std::string_view value) override;
    void setDouble(std::string_view key, double value) override;

private:
    void set(std::string_view key, const QJsonValue& value);
    QJsonValue value(std::string_view key) const;

    QJsonObject values_;
    ValuesWriter writer_;
};

} // namespace tessel
