// The reports as PDF files, read back with poppler's tools: the pages as pictures.
#include "files_fixture.h"
#include "pdf_printer.h"
#include "report_fixture.h"
#include "report_pages.h"

#include <QGuiApplication>
#include <QImage>
#include <QProcess>

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

constexpr char16_t Embedded[] = u"Channels of the fire brigade \u0431\r\nValid to 2027";

class PdfPrinterTest : public FilesTest {
protected:
  std::optional<std::string> Print(const Configuration& values, std::u16string_view text, ReportChoice choice) {
    PdfPrinter printer(files, Path("out.pdf"));
    return PrintReports(printer, TextsOf(values, text), choice);
  }
  std::string Tool(const QString& program, const QStringList& arguments) {
    QProcess tool;
    tool.start(program, arguments);
    EXPECT_TRUE(tool.waitForFinished()) << program.toStdString();
    EXPECT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().toStdString();
    return tool.readAllStandardOutput().toStdString();
  }
  QString Pdf() { return QString::fromStdString(Path("out.pdf")); }
};

// Small pictures in grey, so that another way of smoothing edges makes no difference that counts. To renew them run
// this with MR4500X_KEEP_PICTURES naming a folder, look at what it leaves there, and copy it to golden/.
TEST_F(PdfPrinterTest, ThePagesLookAsTheyShould) {
  ASSERT_EQ(Print(FullValues(), Embedded, {true, true, true}), std::nullopt);
  const QString keepIn = qEnvironmentVariable("MR4500X_KEEP_PICTURES");
  Tool("pdftoppm", {"-r", "50", "-gray", "-png", Pdf(), QString::fromStdString(Path("page"))});
  for (const char* const name : {"page-1.png", "page-2.png", "page-3.png"}) {
    const QImage page(QString::fromStdString(Path(name)));
    if (!keepIn.isEmpty()) page.save(keepIn + "/" + name);
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
    PdfPrinter abandoned(files, Path("out.pdf"));
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

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
