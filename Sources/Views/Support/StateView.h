#pragma once

#include <memory>

#include <QtWidgets/QWidget>

#include "Token.h"

namespace tessel {

class AppState;

/// A view of the application's state. What changes while it is visible is shown on the next turn, once
/// however much it was; hidden it costs nothing, and is brought up to date when it appears.
class StateView : public QWidget {
    Q_OBJECT

public:
    explicit StateView(AppState& appState, QWidget* parent = nullptr);

protected:
    /// Shows what the state is now. Runs before the view appears, and after changes.
    virtual void showState(const AppState& state) = 0;
    /// Null once the application goes.
    std::shared_ptr<AppState> state() const { return appState_.lock(); }

    void showEvent(QShowEvent* event) override;

private:
    void updateLater();
    void updateNow();

    std::weak_ptr<AppState> appState_;
    bool updateIsPending_ = false;
    Token observation_;
};

} // namespace tessel
