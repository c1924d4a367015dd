// The way of the radios at one port: wait for one, identify it, take a row, back it up, write it, verify it, enter it,
// wait until it is taken off, and again.
#pragma once

#include "exchange.h"
#include "file_system.h"
#include "plan.h"

#include <atomic>
#include <functional>
#include <mutex>
#include <string>

namespace mr4500x {

enum class PortState : std::uint8_t {
  Waiting, // for a radio
  Identifying,
  BackingUp,
  Writing,
  Verifying,
  // The radio can be taken off:
  Done,
  AlreadyDone, // holds a row of this plan already
  Failed,
  SetAside, // its band is another
  NoRow,    // no free row for it
  // Without a radio:
  NoPort,    // can't be opened; tried again
  NoJournal, // no new rows until the database answers
  Stopped,   // after two failures in a row
  Finished,  // as asked, or nothing is left to do
};

struct PortEvent {
  std::size_t port = 0; // index, from 0
  PortState state = PortState::Waiting;
  std::size_t row = 0; // 0: none
  std::string label, idNumber, text;
  int percent = 0; // of the way, while it goes on
};

// What the ports of a bench share. Its functions are called from the ports' threads, several at a time.
struct FleetDesk {
  const Plan& plan;
  const FieldTexts& texts;
  FileSystem& files;   // has no state, so threads share it
  std::string bench{}; // unique among all running benches
  std::string backupFolder{};
  Speed speed = Speed::Prescribed;
  bool acceptsOtherBand = false;
  std::function<LocalTime()> now{};
  Sha256 sha256 = nullptr;
  std::function<std::string()> newKey{}; // of an attempt
  std::function<void(const PortEvent&)> tell{};

  // Of a late entry: two radios hold the same row. May be empty.
  std::function<void(const Attempt&)> tellConflict{};

  std::atomic<bool> isStopping = false; // no new radios
  // Places for radios that may still be begun; unlimited below 0. 0 at the end: all that were asked for are verified.
  std::atomic<int> placesLeft = -1;

  // Set by the ports:
  std::atomic<bool> isBegun = false;     // the journal has the plan's rows
  std::atomic<bool> areRowsDone = false; // all of them
  std::mutex places{};                   // guards placesLeft and underway together
  int underway = 0;                      // radios that have taken a place and may give it back
};

class PendingAttempts;

// Runs until desk.isStopping, the desk's places and the plan's rows are used up, or two failures in a row. Every change
// of state is told; errors of the port, the files and the database harm no other port.
void RunPort(std::size_t port, SerialLine& line, Clock& clock, Journal& journal, PendingAttempts& pending,
             FleetDesk& desk);

} // namespace mr4500x
