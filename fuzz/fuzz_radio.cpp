// Any radio at the other end of the line: each exchange ends in its bounded time with one message and a closed port,
// the image is spoilt no further than agreed, and a sound radio afterwards is read or written as if nothing had been.
#include <deque>
#include <utility>

#include "exchange.h"
#include "fuzz_input.h"

namespace mr4500x {

namespace {

using namespace std::chrono_literals;

constexpr Clock::Moment LongestExchange = 60s;
constexpr int MostOperations = 100'000;
constexpr Clock::Moment CharacterTime = 1250us;
constexpr char Stamped[] = "20041104090507\0"; // and the 0x00 that ends the literal

// Answers from its memory, except where the input has something else in mind.
class FuzzedRadio final : public SerialPort, public Clock {
public:
  std::array<std::uint8_t, 1024> memory{};
  LineBytes identity = {'R', 0xB8, 0x01, 0xD6, 0x01, 0x00, '0', 0, 0};
  FuzzInput input;
  bool isFaulty = false; // whether the input has changed anything

  explicit FuzzedRadio(FuzzInput bytes) : input(bytes) {
    for (std::size_t i = 0; i < memory.size(); ++i)
      memory[i] = static_cast<std::uint8_t>(i * 37 + (i >> 8) + 1);
  }

  void Heal() {
    input = FuzzInput({});
    m_correctAnswers = 0;
    m_fails = m_isStuck = false;
    m_now += 2s; // until the user tries again
  }
  void BeginExchange() { m_operationsLeft = MostOperations; }

  Moment Now() override { return m_now; }
  void WaitUntil(Moment moment) override { m_now = std::max(m_now, moment); }

  void SetPortNumber(int) override {}
  std::optional<std::string> Open(const char*) override {
    if (!Works()) return "Access is denied.";
    m_isOpen = true;
    return std::nullopt;
  }
  void Close() override { m_isOpen = false; }
  [[nodiscard]] bool IsOpen() const override { return m_isOpen; }
  std::optional<std::size_t> BytesReceived() override {
    if (!Works()) return std::nullopt;
    return std::ranges::count_if(m_air, [&](const auto& byte) { return byte.first <= m_now; });
  }
  bool DiscardReceived() override { return TakeReceived().has_value(); }
  std::optional<std::size_t> BytesToTransmit() override {
    return Works() ? std::optional<std::size_t>(m_isStuck ? 1 : 0) : std::nullopt;
  }
  bool DiscardTransmit() override { return Works(); }
  std::optional<LineBytes> TakeReceived() override {
    LineBytes bytes;
    for (; !m_air.empty() && m_air.front().first <= m_now; m_air.pop_front())
      bytes.push_back(m_air.front().second);
    return Works() ? std::optional(bytes) : std::nullopt;
  }
  bool Write(std::span<const std::uint8_t> bytes) override {
    if (!Works()) return false;
    LineBytes reply = ReplyTo(bytes);
    Moment arrival = m_now + CharacterTime * bytes.size() + 2ms + Spoil(reply);
    if (!m_air.empty()) arrival = std::max(arrival, m_air.back().first);
    for (const std::uint8_t byte : reply)
      m_air.emplace_back(arrival += CharacterTime, byte);
    return true;
  }

private:
  bool Works() {
    if (m_operationsLeft > 0 && --m_operationsLeft == 0) {
      Require(m_fails, "an exchange comes to its end");
      m_isOpen = m_isOpen && !m_closes;
    }
    return m_operationsLeft > 0 || !m_fails;
  }

  LineBytes ReplyTo(std::span<const std::uint8_t> frame) {
    const std::string text(frame.begin(), frame.end());
    if (text == "rEAD") return {0x06};
    if (text == "wRITE") return identity;
    Require(frame.size() >= 4 && frame[0] == 0x57, "a frame begins with 57");
    if (frame[1] == 0xAA) {
      Require(text == "W\xAA\xAA\xAA" || text == "W\xAA\xAA\xAAUUUUUUUU", "an end is one of two packets");
      return text.size() == 4 ? LineBytes{} : LineBytes{'O', 'K'};
    }
    const std::size_t address = frame[1] * 256U + frame[2];
    Require(frame[3] == 8 && address % 8 == 0 && address < memory.size(), "a record is one of the memory's");
    if (frame.size() == 12) {
      std::ranges::copy(frame.subspan(4), memory.begin() + static_cast<std::ptrdiff_t>(address));
      return {0x06};
    }
    Require(frame.size() == 4, "a request has four bytes");
    LineBytes reply(frame.begin(), frame.end());
    reply.insert(reply.end(), memory.begin() + static_cast<std::ptrdiff_t>(address),
                 memory.begin() + static_cast<std::ptrdiff_t>(address) + 8);
    return reply;
  }

  // Changes the answer as the input wants; how late it comes.
  Moment Spoil(LineBytes& reply) {
    if (m_correctAnswers > 0) return --m_correctAnswers, 0us;
    if (input.IsEmpty()) return 0us;
    const int way = input.Below(10);
    if (way == 0) return m_correctAnswers = input.Byte(), 0us;
    isFaulty = true;
    const std::uint8_t value = input.Byte();
    const auto at = reply.begin() + (reply.empty() ? 0 : static_cast<std::ptrdiff_t>(value % reply.size()));
    switch (way) {
    case 1:
      reply.clear();
      break;
    case 2:
      reply.erase(at, reply.end());
      break;
    case 3:
      if (!reply.empty()) *at = input.Byte();
      break;
    case 4:
      reply.insert(at, input.Byte());
      break;
    case 5: {
      const std::string raw = input.Text();
      reply.assign(raw.begin(), raw.end());
      break;
    }
    case 6:
      return 5ms * value;
    case 7:
      m_isStuck = value < 8;
      break;
    default:
      m_fails = true;
      m_closes = way == 9;
      m_operationsLeft = 1 + value;
      break;
    }
    return 0us;
  }

  std::deque<std::pair<Moment, std::uint8_t>> m_air; // on its way to the computer, with its arrival
  Moment m_now{};
  int m_operationsLeft = 0;
  int m_correctAnswers = 0;
  bool m_isOpen = false, m_isStuck = false, m_fails = false, m_closes = false;
};

struct Desk final : ProgressView, MessageView {
  FuzzedRadio radio;
  SerialLine line{radio, radio, 3};
  RadioImage image;
  Answer answer = Answer::No;
  bool canShow = true;
  bool showsProgress = false;
  int messages = 0, questions = 0;

  explicit Desk(FuzzInput input) : radio(input) {
    ResetToDefaults(image, {2001, 2, 3, 4, 5, 6});
    image.PatrolWorkBlock.fill(0x5A);
    image.RadioIdBlock.fill(0x66);
  }

  void Open(std::string_view, std::string_view, int) override {
    Require(!showsProgress, "one progress window at a time");
    showsProgress = true;
  }
  void SetValue(int) override { Require(showsProgress, "an open progress window moves"); }
  void Close() override { showsProgress = false; }
  Answer Show(MessageIcon, std::string_view, std::string_view, MessageButtons buttons) override {
    Require(!showsProgress, "no message over the progress window");
    ++(buttons == MessageButtons::Ok ? messages : questions);
    return buttons == MessageButtons::Ok ? Answer::Ok : answer;
  }

  Outcome Run(int kind) {
    const Exchange exchange{line, *this, *this};
    const auto show = [&] { return canShow; };
    const auto written = [] {};
    const Clock::Moment begin = radio.Now();
    messages = questions = 0;
    radio.BeginExchange();
    const Outcome outcome = kind == 0   ? ReadRadio(exchange, image, show)
                            : kind == 1 ? WriteRadio(
                                              exchange, image, [] { return LocalTime{2004, 11, 4, 9, 5, 7}; }, written)
                            : kind == 2 ? ReadEmbeddedInfo(exchange, image, show)
                                        : WriteEmbeddedInfo(exchange, image, written);
    Require(radio.Now() - begin < LongestExchange, "an exchange takes its bounded time");
    Require(!radio.IsOpen() && !showsProgress, "the port and the progress window are closed");
    const int expected = outcome == Outcome::BandDeclined ? 0 : outcome == Outcome::DisplayError ? 2 : 1;
    Require(messages == expected, "an exchange ends with its one message");
    Require(questions == 0 || kind == 1, "only a write asks");
    return outcome;
  }
};

// The blocks of a memory page that an exchange brings back, as far as they are stored at all.
void RequireRead(const Desk& desk, int kind) {
  for (const BlockPlace& place : RecordMap) {
    if (kind == 2 && place.address >> 8 != 0x02) continue;
    const auto block = BlockBytes(desk.image, place.block);
    Require(std::equal(block.begin(), block.end(), desk.radio.memory.begin() + place.address),
            "a sound radio is read as it is");
  }
}

void RequireWritten(const Desk& desk, const RadioImage& image, int kind) {
  for (const BlockPlace& place : RecordMap) {
    const bool isInfo = place.block == ImageBlock::EmbeddedInfoBlock;
    if (isInfo != (kind == 3) || place.block == ImageBlock::RadioIdBlock ||
        place.block == ImageBlock::FirmwareVersionBlock)
      continue;
    const auto block = BlockBytes(image, place.block);
    Require(std::equal(block.begin(), block.end(), desk.radio.memory.begin() + place.address),
            "a sound radio holds what was written");
  }
}

void Transfer(FuzzInput input) {
  const std::uint8_t options = input.Byte();
  const int kind = options & 3;
  Desk desk(input);
  desk.canShow = (options & 4) == 0;
  desk.answer = (options & 8) != 0 ? Answer::Yes : Answer::No;
  const RadioImage before = desk.image;
  RadioImage stamped = before;
  std::copy_n(Stamped, stamped.WriteStampBlock.size(), stamped.WriteStampBlock.begin());

  const Outcome outcome = desk.Run(kind);
  const bool isRead = kind == 0 || kind == 2;
  const bool hasBegun = outcome == Outcome::Complete || outcome >= Outcome::Interrupted;
  if (!hasBegun) Require(desk.image == before, "an exchange that has not begun changes nothing");
  if (kind == 1 && hasBegun) Require(desk.image == stamped, "a write changes nothing but the stamp");
  if (kind == 3) Require(desk.image == before, "writing the information changes nothing");
  Require(desk.image.PatrolWorkBlock == before.PatrolWorkBlock &&
              desk.image.FiveToneStandard == before.FiveToneStandard,
          "what no radio holds stays");
  if (kind == 2) {
    RadioImage rest = desk.image;
    rest.EmbeddedInfoBlock = before.EmbeddedInfoBlock;
    rest.WriteStampBlock = before.WriteStampBlock;
    Require(rest == before, "reading the information changes nothing else");
  }
  if (!desk.radio.isFaulty) {
    Require(outcome == Outcome::Complete || (isRead && !desk.canShow && outcome == Outcome::DisplayError) ||
                (kind == 1 && outcome == Outcome::BandDeclined),
            "a sound radio gives no failure");
  }

  desk.radio.Heal();
  desk.canShow = true;
  desk.answer = Answer::Yes;
  Require(desk.Run(kind) == Outcome::Complete, "the next try with a sound radio works");
  if (isRead) RequireRead(desk, kind);
  if (!isRead) RequireWritten(desk, desk.image, kind);
}

} // namespace

} // namespace mr4500x

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mr4500x::Transfer(mr4500x::FuzzInput({data, size}));
  return 0;
}
