#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include "DefaultsStore.h"

namespace tessel {

/// The settings as one flat JSON object (RFC 8259) in a file that its user may read and edit.
///
/// The file is read once, at the start. Every write reads it again first, so that what the user has edited
/// meanwhile stays, and replaces it atomically. A damaged file is kept aside under another name and never
/// destroyed; until something is written there is then no settings file. A file that cannot be written leaves
/// the values in force for this process.
class JSONDefaultsStore final : public DefaultsStore {
public:
    /// `settings.json` in the program's directory below `$XDG_CONFIG_HOME` (XDG Base Directory).
    static QString standardPath();

    explicit JSONDefaultsStore(QString path);

    std::optional<std::string> string(std::string_view key) const override;
    std::optional<double> number(std::string_view key) const override;
    void setString(std::string_view key, std::string_view value) override;
    void setDouble(std::string_view key, double value) override;

private:
    void set(std::string_view key, const QJsonValue& value);
    QJsonValue value(std::string_view key) const;

    QString path_;
    QJsonObject values_;
};

} // namespace tessel
