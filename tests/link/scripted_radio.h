// A radio on a serial port for tests: it speaks the protocol from its memory on a virtual clock, its bytes arrive at
// line pace, and a test may spoil any of its answers or the port itself.
#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <functional>
#include <utility>

#include <gtest/gtest.h>

#include "exchange.h"

namespace mr4500x {

using namespace std::chrono_literals;

inline const LineBytes EndPacket = {0x57, 0xAA, 0xAA, 0xAA, 0x55, 0x55, 0x55, 0x55, 0x55, 0x55, 0x55, 0x55};

struct ScriptedRadio final : SerialPort, Clock {
  std::array<std::uint8_t, 1024> memory{};
  LineBytes identity = {'R', 0xB8, 0x01, 0xD6, 0x01, 0x00, '0', 0x77, 0x77};
  Moment latency = 2ms;                                           // from a frame's last bit to the answer's first
  std::function<void(std::size_t frame, LineBytes& reply)> spoil; // may change the answer to frame 0, 1, ...
  struct {
    std::size_t before = SIZE_MAX; // this byte of the next answer
    Moment length{};
  } gap;
  std::optional<std::string> openFailure;
  int operationsLeft = 1'000'000; // before the port fails for good
  bool stuck = false;             // bytes never leave
  bool open = false;
  std::vector<LineBytes> frames;                   // what was written
  std::deque<std::pair<Moment, std::uint8_t>> air; // on its way to the computer, with its arrival
  Moment now{}, sentAt{};                          // sentAt: when the last byte written has left the line
  std::vector<std::pair<std::string, Moment>> journal;

  ScriptedRadio() {
    for (std::size_t i = 0; i < memory.size(); ++i)
      memory[i] = static_cast<std::uint8_t>(i * 37 + (i >> 8) + 1);
  }
  void Note(const char* what) { journal.emplace_back(what, now); }

  Moment Now() override { return now; }
  void WaitUntil(Moment moment) override { now = std::max(now, moment); }

  void SetPortNumber(int number) override { EXPECT_EQ(number, 3); }
  std::optional<std::string> Open(const char* settings) override {
    EXPECT_STREQ(settings, "9600,O,8,2");
    open = !openFailure;
    return openFailure;
  }
  void Close() override { open = false; }
  bool IsOpen() const override { return open; }
  std::optional<std::size_t> BytesReceived() override {
    if (!Works()) return std::nullopt;
    return std::count_if(air.begin(), air.end(), [&](auto& byte) { return byte.first <= now; });
  }
  bool DiscardReceived() override { return TakeReceived().has_value(); }
  std::optional<std::size_t> BytesToTransmit() override { // as an adapter that takes all bytes at once
    return Works() ? std::optional<std::size_t>(stuck) : std::nullopt;
  }
  bool DiscardTransmit() override {
    Note("discard output");
    EXPECT_GE(now, sentAt) << "bytes thrown away that were meant to go";
    return Works();
  }
  std::optional<LineBytes> TakeReceived() override {
    LineBytes bytes;
    for (; !air.empty() && air.front().first <= now; air.pop_front())
      bytes.push_back(air.front().second);
    return Works() ? std::optional(bytes) : std::nullopt;
  }
  bool Write(std::span<const std::uint8_t> bytes) override {
    if (!Works() || !open) return false;
    Note("write");
    sentAt = now + 1250us * bytes.size();
    frames.emplace_back(bytes.begin(), bytes.end());
    LineBytes reply = ReplyTo(frames.back());
    if (spoil) spoil(frames.size() - 1, reply);
    Moment arrival = sentAt + latency;
    for (std::size_t i = 0; i < reply.size(); ++i)
      air.emplace_back(arrival += 1250us + (i == gap.before ? gap.length : 0us), reply[i]);
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
    EXPECT_TRUE(frame.at(0) == 0x57 && frame.at(3) == 0x08 && (frame.size() == 4 || frame.size() == 12));
    auto* record = &memory.at(frame[1] * 256u + frame[2]);
    if (frame.size() == 12) return std::copy_n(frame.begin() + 4, 8, record), LineBytes{0x06};
    LineBytes reply = frame;
    reply.insert(reply.end(), record, record + 8);
    return reply;
  }
};

// A user at a computer with the radio on COM3: keeps what is shown, and runs the exchanges.
struct Desk final : ProgressView, MessageView {
  ScriptedRadio radio;
  SerialLine line{radio, radio, 3};
  RadioImage image;
  Answer answer = Answer::No;
  bool canShow = true;            // whether the editor can show what was read
  std::vector<std::string> shown; // title|text|maximum of windows, icon|title|text of messages
  std::vector<int> values;        // of the bar
  bool showsProgress = false;
  int callbacks = 0; // that found the port still open

  Desk() { std::copy_n(radio.identity.begin() + 1, 4, image.BandBlock.begin()); }

  void Open(std::string_view title, std::string_view text, int maximum) override {
    shown.push_back(std::string(title) + "|" + std::string(text) + "|" + std::to_string(maximum));
    showsProgress = true;
  }
  void SetValue(int value) override {
    radio.Note("progress");
    values.push_back(value);
  }
  void Close() override { showsProgress = false; }
  Answer Show(MessageIcon icon, std::string_view title, std::string_view text, MessageButtons buttons) override {
    EXPECT_FALSE(showsProgress) << "a message over the progress window";
    const char* icons[] = {"", "i|", "!|", "X|"};
    shown.push_back(icons[static_cast<int>(icon)] + std::string(title) + "|" + std::string(text));
    return buttons == MessageButtons::Ok ? Answer::Ok : answer;
  }

  bool Callback() { return callbacks += radio.open, canShow; }
  Outcome Read() {
    return ReadRadio({line, *this, *this}, image, [this] { return Callback(); });
  }
  Outcome Write() {
    const auto now = [] { return LocalTime{2004, 11, 4, 9, 5, 7}; };
    return WriteRadio({line, *this, *this}, image, now, [this] { Callback(); });
  }
  Outcome ReadInfo() {
    return ReadEmbeddedInfo({line, *this, *this}, image, [this] { return Callback(); });
  }
  Outcome WriteInfo() {
    return WriteEmbeddedInfo({line, *this, *this}, image, [this] { Callback(); });
  }
};

} // namespace mr4500x
