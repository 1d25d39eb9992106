#pragma once

#include <memory>

#include <gtest/gtest.h>

#include "ChildProcess.h"
#include "Typist.h"
#include "X11/X11Room.h"

namespace tessel {

/// A test on the server's bare desktop, without a window manager.
class BareDesktop : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    Typist typist;
    X11Room room;
    bool pastedIsText = true;
    int primaryOffers = 0;
    int trustPrompts = 0;
};

/// The same under a window manager.
class ManagedDesktop : public BareDesktop {
protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();
    void SetUp() override;
};

} // namespace tessel
