#pragma once

namespace mr4500x {

struct LocalTime {
  int year, month, day; // four-digit year; month and day from 1
  int hour, minute, second;
};

} // namespace mr4500x
