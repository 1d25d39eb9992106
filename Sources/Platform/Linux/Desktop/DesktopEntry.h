#pragma once

#include <memory>
#include <optional>

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

struct _GKeyFile;

namespace tessel {

/// The group of a desktop entry (freedesktop.org, Desktop Entry) that says what it is.
class DesktopEntry {
public:
    /// An empty one.
    DesktopEntry();
    /// None: `content` is not a desktop entry.
    static std::optional<DesktopEntry> parsed(const QByteArray& content);

    /// Empty: there is no such key.
    QString string(const char* key) const;
    /// The values of a list, which semicolons separate. Empty: there is no such key.
    QStringList strings(const char* key) const;
    /// Whether there is such a key.
    bool has(const char* key) const;
    /// `otherwise`: there is no such key, or it is neither true nor false.
    bool boolean(const char* key, bool otherwise) const;

    void set(const char* key, const QString& value);
    void set(const char* key, bool value);

    /// The file's text.
    QByteArray content() const;

private:
    struct Release {
        void operator()(_GKeyFile* file) const;
    };
    std::unique_ptr<_GKeyFile, Release> file_;
};

} // namespace tessel
