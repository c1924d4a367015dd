#pragma once

namespace mr4500x {

// What mr4500x-cli says about the fleet command, which another program runs.
inline constexpr char FleetSummary[] = "Program many radios on several ports, each with its row of a plan";

} // namespace mr4500x
