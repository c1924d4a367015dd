#pragma once

#include "clock.h"

namespace mr4500x {

class SteadyClock final : public Clock {
public:
  SteadyClock();
  [[nodiscard]] Moment Now() override;
  void WaitUntil(Moment moment) override;
};

} // namespace mr4500x
