#pragma once

#include <QtCore/QObject>

#include <functional>

namespace tessel {

/// The end of the user's session, as the session manager tells it (X Session Management Protocol). Without a
/// session manager nothing comes from here.
///
/// We have nothing to save and nothing to ask, and are not started again by the manager with the next
/// session: whether the program starts then is the login item's business.
class SessionEnd : public QObject {
public:
    /// Runs `requested` on the main loop when the session is over. A `QGuiApplication` must exist.
    explicit SessionEnd(std::function<void()> requested);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> requested_;
};

} // namespace tessel
