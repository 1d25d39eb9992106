#include "Support/StateView.h"

#include <utility>

#include "AppState.h"

namespace tessel {

StateView::StateView(AppState& appState, QWidget* parent)
    : QWidget(parent)
    , appState_(appState.weak_from_this())
    , observation_(appState.observe([this] { updateLater(); }))
{}

void StateView::showEvent(QShowEvent*)
{
    updateNow();
}

void StateView::updateLater()
{
    if (!isVisible() || std::exchange(updateIsPending_, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (updateIsPending_)
                updateNow();
        },
        Qt::QueuedConnection);
}

void StateView::updateNow()
{
    updateIsPending_ = false;
    if (const auto current = state())
        showState(*current);
}

} // namespace tessel
