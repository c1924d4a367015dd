// The dialog in which the user chooses a printer or a PDF file.
#pragma once

class QPrinter;
class QString;

namespace mr4500x {

// False when cancelled.
[[nodiscard]] bool AskForPrinter(QPrinter& printer, const QString& title);

} // namespace mr4500x
