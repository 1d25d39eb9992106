#pragma once

#include <QtCore/QStringList>
#include <QtCore/QVariant>
#include <QtDBus/QDBusAbstractAdaptor>
#include <QtDBus/QDBusMessage>

#include "RemoteControl.h"

namespace tessel {

/// The interface by which desktops activate an application. Takes commands and answers nothing; while the
/// program is ending each call fails with `isEndingError`.
class ApplicationAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    using Handler = RemoteControl::Handler;

    static constexpr QLatin1StringView isEndingError{"org.tesselclipboard.TesselClipboard.Error.IsEnding"};

    /// `parent` is the exported object, which owns the adaptor.
    ApplicationAdaptor(QObject* parent, Handler handler);

public slots: // The names are the interface's own.
    /// Opens the history, as starting the program again does.
    void Activate(const QVariantMap& platform_data, const QDBusMessage& call);
    /// The program opens no files: the same as `Activate`.
    void Open(const QStringList& uris, const QVariantMap& platform_data, const QDBusMessage& call);
    /// Runs a named action; an unknown one does nothing.
    void ActivateAction(const QString& action_name, const QVariantList& parameter,
                        const QVariantMap& platform_data, const QDBusMessage& call);

private:
    void pass(const RemoteRequest& request, const QDBusMessage& call);

    Handler handler_;
};

} // namespace tessel
