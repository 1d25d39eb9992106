#pragma once

#include <functional>
#include <memory>

#include "AccessibilityTrust.h"
#include "Application.h"
#include "Clock.h"
#include "DefaultsStore.h"
#include "Digest.h"
#include "EventMonitors.h"
#include "HotKeyCenter.h"
#include "KeyStrokes.h"
#include "LoginItem.h"
#include "MainQueue.h"
#include "Pasteboard.h"
#include "Screens.h"
#include "UpdaterController.h"
#include "Workspace.h"

namespace tessel {

/// Everything that the core asks of the system, as one value. The composition root fills it. Every entry is
/// required unless it says otherwise.
struct Platform {
    std::shared_ptr<Pasteboard> pasteboard;
    std::shared_ptr<Digest> digest;
    std::shared_ptr<DefaultsStore> defaults;
    std::shared_ptr<HotKeyCenter> hotKeyCenter;
    std::shared_ptr<Workspace> workspace;
    std::shared_ptr<AccessibilityTrust> accessibilityTrust;
    std::shared_ptr<KeyStrokes> keyStrokes;
    std::shared_ptr<EventMonitors> eventMonitors;
    std::shared_ptr<Screens> screens;
    std::shared_ptr<MainQueue> mainQueue;
    std::shared_ptr<Clock> clock;
    std::shared_ptr<Application> application;
    /// May be absent: the login item then counts as not enabled and cannot be changed.
    std::shared_ptr<LoginItem> loginItem;
    /// Makes the updater. May be absent, or return null: there are then no updates to look for.
    std::function<std::unique_ptr<UpdaterController>()> makeUpdater;
};

} // namespace tessel
