// The reports as PDF files, read back with poppler's tools: the pages as pictures.
#include "file_access.h"
#include "files_fixture.h"
#include "pdf_printer.h"
#include "report_fixture.h"
#include "report_pages.h"

#include <QImage>

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

constexpr char16_t Embedded[] = u"Channels of the fire brigade \u0431\r\nValid to 2027";

class PdfPrinterTest : public FilesTest {
protected:
  PdfPrinter MakePrinter() {
    const std::string path = Path("out.pdf");
    return {path, [this, path](auto content) { return ReplaceFile(files, path, content, Surplus::Drop); }};
  }
  std::optional<std::string> Print(const Configuration& values, std::u16string_view text, ReportChoice choice) {
    PdfPrinter printer = MakePrinter();
    return PrintReports(printer, TextsOf(values, text), choice);
  }
};

// Small pictures in grey, so that another way of smoothing edges makes no difference that counts. To renew them, copy
// what pdftoppm makes here to golden/ and look at it.
TEST_F(PdfPrinterTest, ThePagesLookAsTheyShould) {
  ASSERT_EQ(Print(FullValues(), Embedded, {true, true, true}), std::nullopt);
  ASSERT_EQ(std::system(("pdftoppm -r 50 -gray -png " + Path("out.pdf") + " " + Path("page")).c_str()), 0);
  for (const char* const name : {"page-1.png", "page-2.png", "page-3.png"}) {
    const QImage page(QString::fromStdString(Path(name)));
    const QImage golden(QStringLiteral(GOLDEN_PICTURES "/") + name);
    ASSERT_EQ(page.size(), golden.size()) << name;
    int different = 0;
    for (int y = 0; y < page.height(); ++y)
      for (int x = 0; x < page.width(); ++x)
        if (std::abs(qGray(page.pixel(x, y)) - qGray(golden.pixel(x, y))) > 96) ++different;
    EXPECT_LT(different, page.width() * page.height() / 500) << name;
  }
}

TEST_F(PdfPrinterTest, WhatFailsLeavesTheOldFile) {
  Put("out.pdf", "old");
  {
    PdfPrinter abandoned = MakePrinter();
    EXPECT_EQ(abandoned.BeginJob("title"), std::nullopt);
    EXPECT_EQ(abandoned.NewPage(), std::nullopt);
    abandoned.AbandonJob();
  }
  EXPECT_EQ(Content("out.pdf"), "old");
  files.unwritable.insert(Path("out.pdf"));
  EXPECT_EQ(Print(NewValues(), {}, {false, true, false}), "The PDF file " + Path("out.pdf") + " can't be written.");
  EXPECT_EQ(Content("out.pdf"), "old");
}

} // namespace
} // namespace mr4500x
