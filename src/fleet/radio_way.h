// What is done with one radio that has been identified and has got a row: backup, write, verification.
#pragma once

#include "port_way.h"

namespace mr4500x {

class RadioWay final : public ExchangeObserver {
public:
  using TellProgress = std::function<void(PortState state, int percent)>;

  RadioWay(SerialLine& line, Journal& journal, FleetDesk& desk, TellProgress tell)
      : m_line(line), m_journal(journal), m_desk(desk), m_tell(std::move(tell)) {}

  // Takes the row from the attempt, and gives it text, backup and checksum. `identity` has what ReadIdentity reads.
  [[nodiscard]] AttemptOutcome Go(const RadioImage& identity, Attempt& attempt);

private:
  [[nodiscard]] bool BackUp(const std::string& idNumber, Attempt& attempt);
  [[nodiscard]] bool Verify(const RadioImage& image, bool hasText, Attempt& attempt);
  [[nodiscard]] bool IsComplete(const ExchangeResult& result, Attempt& attempt);
  void Enter(PortState state);

  void Began(Transfer transfer, int maximum) override;
  void Progress(int value) override;
  void Ended() override;
  [[nodiscard]] bool AcceptsOtherBand() override { return m_desk.acceptsOtherBand; }
  [[nodiscard]] bool Complete(Transfer /*transfer*/) override { return true; }

  SerialLine& m_line;
  Journal& m_journal;
  FleetDesk& m_desk;
  TellProgress m_tell;
  PortState m_state = PortState::BackingUp;
  int m_steps = 0; // of the whole way
  int m_done = 0, m_maximum = 0;
};

} // namespace mr4500x
