#pragma once

#include "desktop.h"

#include <memory>
#include <string>

class QDialog;
class QProgressBar;

namespace mr4500x {

// frmProgress.
class QtProgressView final : public ProgressView {
public:
  explicit QtProgressView(std::string programTitle);
  ~QtProgressView() override;

  void Open(std::string_view title, std::string_view text, int maximum) override; // empty text: the program title
  void SetValue(int value) override;
  void Close() override;

private:
  std::string m_programTitle;
  std::unique_ptr<QDialog> m_window;
  QProgressBar* m_bar = nullptr;
};

} // namespace mr4500x
