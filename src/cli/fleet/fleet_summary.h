#pragma once

namespace mr4500x {

// The summary of the fleet command in mr4500x-cli. Another program runs it.
inline constexpr char FleetSummary[] = "Program many radios on several ports, each with its row of a plan";

} // namespace mr4500x
