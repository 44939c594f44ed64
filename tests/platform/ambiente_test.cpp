#include "platform/ambiente.h"

#include <gtest/gtest.h>

#include "platform/orologio.h"

namespace platform {
namespace {

TEST(Ambiente, AClockInTheSteadOfTheMachinesIsAskedUntilItIsPutBack) {
    const double prima = secondi();
    {
        const Ripristina orologio(ambiente().orologio, [] { return -12.5; });
        EXPECT_EQ(secondi(), -12.5);
    }
    EXPECT_GE(secondi(), prima);
}

}  // namespace
}  // namespace platform
