// Reports violated expectations of a scripted radio as failures of the running test.
#pragma once

#include <gtest/gtest.h>

namespace mr4500x {

inline void Require(bool holds, const char* what) {
  EXPECT_TRUE(holds) << what;
}

} // namespace mr4500x
