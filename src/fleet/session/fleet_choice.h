// What a bench is to do, as its user chooses it.
#pragma once

#include "port_address.h"

#include <string>
#include <vector>

namespace mr4500x {

struct FleetChoice {
  std::string templateFile;
  std::string rowsFile;     // "": every radio gets the template
  std::string journal;      // address; "": a file beside the template
  std::string backupFolder; // "": a folder beside the template
  std::vector<PortAddress> ports;
  int count = -1; // radios at most; below 0: all
  bool isQuick = false;
  bool acceptsOtherBand = false;
};

} // namespace mr4500x
