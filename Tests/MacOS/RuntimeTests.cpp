#include <gtest/gtest.h>

#include "Runtime/Runtime.h"

// The entry points that compiled code calls.
extern "C" {
void* objc_get_class(const char* name);
void* objc_autorelease(void* object);
void* objc_initWeak(void** place, void* object);
void objc_destroyWeak(void** place);
}

namespace tessel::objc {
namespace {

/// An object of Foundation's root class, owned by the test.
void* makeObject()
{
    return allocate(objc_get_class("NSObject"));
}

TEST(RuntimeTests, AnObjectIsAliveUntilItsLastOwnerLetsGo)
{
    void* object = makeObject();
    setName(object, "object");
    objc_retain(object);
    objc_release(object);
    EXPECT_EQ(liveObjects(), std::vector<std::string>{"NSObject object"});
    objc_release(object);
    EXPECT_TRUE(liveObjects().empty());
}

TEST(RuntimeTests, WhatIsAutoreleasedGoesWithItsPool)
{
    {
        const AutoreleasePool outer;
        {
            const AutoreleasePool inner;
            objc_autorelease(makeObject());
            EXPECT_EQ(liveObjects().size(), 1U);
        }
        EXPECT_TRUE(liveObjects().empty());
    }
}

TEST(RuntimeTests, AWeakReferenceIsNullOnceItsObjectIsGone)
{
    void* object = makeObject();
    void* reference = nullptr;
    objc_initWeak(&reference, object);
    EXPECT_EQ(reference, object);
    objc_release(object);
    EXPECT_EQ(reference, nullptr);
    objc_destroyWeak(&reference);
}

TEST(RuntimeTests, AMessageThatAnObjectDoesNotUnderstandEndsTheProcess)
{
    void* object = makeObject();
    EXPECT_DEATH(send(object, "unheardOf:", nullptr), "-\\[NSObject unheardOf:\\] is not implemented");
    objc_release(object);
}

TEST(RuntimeTests, AClassWithoutADoubleEndsTheProcess)
{
    EXPECT_DEATH(objc_get_class("NSUnheardOf"), "no class is called NSUnheardOf");
}

} // namespace
} // namespace tessel::objc
