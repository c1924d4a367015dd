// The job for one radio that has been identified and has a row: backup, write, verification.
#pragma once

#include "bench_context.h"
#include "exchange.h"
#include "port_status.h"

#include <functional>

namespace mr4500x {

// "20261125134507"
[[nodiscard]] std::string StampDigits(const RadioImage& image);

class RadioJob final : public ExchangeObserver {
public:
  using ProgressHandler = std::function<void(PortState state, int percent)>;

  RadioJob(SerialLine& line, Journal& journal, const BenchContext& context, ProgressHandler onProgress)
      : m_line(line), m_journal(journal), m_context(context), m_settings(context.settings),
        m_onProgress(std::move(onProgress)) {}

  // The attempt has the row, and gets text, backup and checksum. `identity` is the result of ReadIdentity.
  [[nodiscard]] AttemptOutcome Run(const RadioImage& identity, Attempt& attempt);
  // Reads back a radio that is done with the attempt's row. DoneBefore if it holds the row, SetAside if its content
  // differs.
  [[nodiscard]] AttemptOutcome CompareDone(Attempt& attempt);
  [[nodiscard]] Remedy RemedyOf() const { return m_remedy; } // if it was not verified

private:
  [[nodiscard]] bool BackUp(Attempt& attempt);
  [[nodiscard]] bool MayWrite(Attempt& attempt);
  [[nodiscard]] AttemptOutcome Write(RadioImage& image, Attempt& attempt);
  enum class Found : std::uint8_t { Same, Different, NotRead };
  [[nodiscard]] bool HasText(const Attempt& attempt) const;
  [[nodiscard]] Found Verify(const RadioImage& image, Attempt& attempt);
  [[nodiscard]] bool IsComplete(const ExchangeResult& result, Attempt& attempt);
  [[nodiscard]] AttemptOutcome SetAsideForBand(const std::string& band, const RadioImage& image, Attempt& attempt);
  void BeginStep(PortState step);

  void Began(Transfer transfer, int maximum) override;
  void Progress(int value) override;
  void Ended() override;
  [[nodiscard]] bool AcceptsOtherBand() override { return m_settings.acceptsOtherBand; }

  SerialLine& m_line;
  Journal& m_journal;
  const BenchContext& m_context;
  const BenchSettings& m_settings;
  ProgressHandler m_onProgress;
  PortState m_step = PortState::BackingUp;
  Remedy m_remedy = Remedy::PlugInAgain;
  int m_total = 0; // units of progress: of the job, of the transfers that have ended, and of the one in progress
  int m_done = 0, m_maximum = 0;
};

} // namespace mr4500x
