#pragma once

#include <QDialog>

#include <functional>
#include <string>

namespace mr4500x {

class FrmAbout final : public QDialog {
  Q_OBJECT

public:
  FrmAbout(const std::function<void(const std::string&)>& openLink, QWidget* parent);
};

} // namespace mr4500x
