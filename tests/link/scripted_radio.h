// A radio on a serial port for tests. It speaks the protocol from its memory on a virtual clock, and its bytes arrive
// at line pace. A test may corrupt any of its answers or the port itself. The including file defines Require(bool,
// text).
#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <functional>
#include <set>
#include <utility>

#include "exchange.h"

namespace mr4500x {

using namespace std::chrono_literals;

inline const LineBytes EndPacket = {0x57, 0xAA, 0xAA, 0xAA, 0x55, 0x55, 0x55, 0x55, 0x55, 0x55, 0x55, 0x55};

struct ScriptedRadio : SerialPort, Clock {
  static constexpr int MostOperations = 1'000'000;

  std::array<std::uint8_t, 1024> memory{};
  LineBytes identity = {'R', 0xB8, 0x01, 0xD6, 0x01, 0x00, '0', 0x77, 0x77};
  Moment latency = 2ms;                                           // from a frame's last bit to the answer's first
  std::function<void(std::size_t frame, LineBytes& reply)> spoil; // may change the answer to frame 0, 1, ...
  struct {
    std::size_t before = SIZE_MAX; // this byte of the next answer
    Moment length{};
  } gap;
  Moment deafness{}; // after an answer: what begins to arrive by then is lost
  std::optional<std::string> openFailure;
  int operationsLeft = MostOperations; // before the port fails for good
  bool stuck = false;                  // bytes never leave
  bool isDrained = false;              // since the last write
  bool open = false;
  std::vector<LineBytes> frames;                   // what was written
  std::deque<std::pair<Moment, std::uint8_t>> air; // on its way to the computer, with its arrival
  Moment now{}, sentAt{};                          // sentAt: when the last byte written has left the line
  Moment answeredAt{};                             // when the last answer has arrived

  ScriptedRadio() {
    for (std::size_t i = 0; i < memory.size(); ++i)
      memory[i] = static_cast<std::uint8_t>(i * 37 + (i >> 8) + 1);
  }

  Moment Now() override { return now; }
  void WaitUntil(Moment moment) override { now = std::max(now, moment); }

  void SetPortNumber(int number) override { Require(number == 3, "the port is COM3"); }
  std::optional<std::string> Open(const LineSettings& settings) override {
    Require(settings == LineSettings{9600, Parity::Odd, 8, 2}, "the line is 9600,O,8,2");
    open = !openFailure;
    return openFailure;
  }
  void Close() override {
    const bool isEnd = !frames.empty() && frames.back()[1] == EndPacket[1] && operationsLeft > 0 && !stuck;
    Require(!isEnd || (isDrained && now >= sentAt + 20ms), "the end of the session is off the line");
    open = false;
  }
  bool IsOpen() const override { return open; }
  std::optional<std::size_t> BytesReceived() override {
    if (!Works()) return std::nullopt;
    return std::count_if(air.begin(), air.end(), [&](auto& byte) { return byte.first <= now; });
  }
  bool DiscardReceived() override { return TakeReceived().has_value(); }
  std::optional<std::size_t> BytesToTransmit() override { // like an adapter that takes all bytes at once
    return Works() ? std::optional<std::size_t>(stuck) : std::nullopt;
  }
  bool DiscardTransmit() override {
    Require(now >= sentAt, "bytes that were meant to go are not thrown away");
    return Works();
  }
  void AwaitSent() override { isDrained = true; }
  std::optional<LineBytes> TakeReceived() override {
    LineBytes bytes;
    for (; !air.empty() && air.front().first <= now; air.pop_front())
      bytes.push_back(air.front().second);
    return Works() ? std::optional(bytes) : std::nullopt;
  }
  bool Write(std::span<const std::uint8_t> bytes) override {
    if (!Works() || !open) return false;
    sentAt = now + 1250us * bytes.size();
    isDrained = false;
    frames.emplace_back(bytes.begin(), bytes.end());
    if (deafness > 0us && now + 1250us <= answeredAt + deafness) return true;
    LineBytes reply = ReplyTo(frames.back());
    if (spoil) spoil(frames.size() - 1, reply);
    Moment arrival = std::max(sentAt + latency, air.empty() ? Moment{} : air.back().first);
    for (std::size_t i = 0; i < reply.size(); ++i)
      air.emplace_back(arrival += 1250us + (i == gap.before ? gap.length : 0us), reply[i]);
    answeredAt = reply.empty() ? answeredAt : arrival;
    gap = {};
    return true;
  }

private:
  bool Works() { return operationsLeft > 0 && operationsLeft-- > 0; }

  LineBytes ReplyTo(const LineBytes& frame) {
    if (frame == LineBytes{'r', 'E', 'A', 'D'}) return {0x06};
    if (frame == LineBytes{'w', 'R', 'I', 'T', 'E'}) return identity;
    if (frame == EndPacket) return {'O', 'K'};
    if (frame == LineBytes{0x57, 0xAA, 0xAA, 0xAA}) return {};
    const bool isRecord = (frame.size() == 4 || frame.size() == 12) && frame[0] == 0x57 && frame[3] == 0x08;
    Require(isRecord && frame[2] % 8 == 0, "a frame is one of the protocol's");
    auto* record = &memory.at(frame[1] * 256u + frame[2]);
    if (frame.size() == 12) return std::copy_n(frame.begin() + 4, 8, record), LineBytes{0x06};
    LineBytes reply = frame;
    reply.insert(reply.end(), record, record + 8);
    return reply;
  }
};

// Ports of which some can be opened.
struct SomePorts : ScriptedRadio {
  std::set<int> working;
  int number = 0;
  void SetPortNumber(int n) override { number = n; }
  std::optional<std::string> Open(const LineSettings& /*settings*/) override {
    open = working.contains(number);
    return open ? std::nullopt : std::optional(std::make_error_code(std::errc::device_or_resource_busy).message());
  }
};

// A user at a computer with the radio on COM3, who watches the exchanges.
struct Computer final : ExchangeObserver {
  ScriptedRadio radio;
  SerialLine line{radio, radio, 3};
  RadioImage image;
  Speed speed = Speed::Prescribed; // speed of Read and Write
  bool acceptsBand = false;
  bool canShow = true; // whether the editor can show what was read
  // What the last exchange reported:
  int maximum = 0; // 0: it has not begun
  bool showsProgress = false;
  std::vector<int> values; // values of the progress
  int questions = 0, completions = 0;

  Computer() { std::copy_n(radio.identity.begin() + 1, 4, image.BandBlock.begin()); }

  void Began(Transfer /*transfer*/, int most) override {
    Require(maximum == 0, "an exchange begins once");
    maximum = most;
    showsProgress = true;
  }
  void Progress(int value) override {
    Require(showsProgress, "progress is made between begin and end");
    values.push_back(value);
  }
  void Ended() override { Require(std::exchange(showsProgress, false), "what ends has begun"); }
  bool AcceptsOtherBand() override {
    Require(maximum == 0 && radio.open, "the question comes before the records");
    return ++questions, acceptsBand;
  }
  bool Complete(Transfer /*transfer*/) override {
    Require(!showsProgress && radio.open, "completion is reported with an open port and no progress window");
    return ++completions, canShow;
  }

  ExchangeResult Run(Transfer transfer) {
    maximum = questions = completions = 0;
    values.clear();
    const auto now = [] { return LocalTime{2004, 11, 4, 9, 5, 7}; };
    ExchangeResult result = transfer == Transfer::Read       ? ReadRadio(line, image, *this, speed)
                            : transfer == Transfer::Write    ? WriteRadio(line, image, now, *this, speed)
                            : transfer == Transfer::ReadInfo ? ReadEmbeddedInfo(line, image, *this)
                                                             : WriteEmbeddedInfo(line, image, *this);
    Require(result.transfer == transfer && result.port == "COM3", "a result names its transfer and its port");
    Require(!showsProgress && !radio.open, "nothing of an exchange stays open");
    return result;
  }
};

} // namespace mr4500x
