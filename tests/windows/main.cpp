#include "machine.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  mr4500x::PrepareProcess();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
