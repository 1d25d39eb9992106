#include "Panel/KeyboardEventBridge.h"

#include "Panel/KeyCaptureView.h"

namespace tessel {

namespace {

void copyActions(const KeyboardEventBridge& bridge, KeyCaptureView& view)
{
    view.onUp = bridge.onUp;
    view.onDown = bridge.onDown;
    view.onEnter = bridge.onEnter;
    view.onEscape = bridge.onEscape;
    view.onDelete = bridge.onDelete;
    view.onPinToggle = bridge.onPinToggle;
}

} // namespace

KeyCaptureView* KeyboardEventBridge::makeView(QWidget* parent) const
{
    auto* view = new KeyCaptureView(parent);
    copyActions(*this, *view);
    return view;
}

void KeyboardEventBridge::updateView(KeyCaptureView& view) const
{
    copyActions(*this, view);
    view.ensureFocus();
}

} // namespace tessel
