#include "configuration.h"
#include "configuration_json.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

TEST(ConfigurationJsonTest, ShowsAListWithoutAnItemForItsByte) {
  const FieldTexts texts = BuildFieldTexts('.');
  RadioImage image;
  ResetToDefaults(image, {2026, 1, 1, 0, 0, 0});
  image.KeyProgramBlock = {0xC1, 0xC2, 0x00, 0x80};
  image.RadioSettingsBlock[1] = 0x0F;
  const auto document = nlohmann::json::parse(ConfigurationJson(Decode(image, texts).configuration));
  EXPECT_EQ(document["keys"]["long_b"], "");
  EXPECT_EQ(document["global"]["tx_tot"], "");
}

} // namespace
} // namespace mr4500x
