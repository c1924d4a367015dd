// The reports as PDF files, read back with poppler's tools: texts and their places, and the pages as pictures.
#include "files_fixture.h"
#include "pdf_printer.h"
#include "report_fixture.h"
#include "report_pages.h"

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <cmath>

namespace mr4500x {
namespace {

constexpr double MarginPoints = 6 / 25.4 * 72;
constexpr char Embedded[] = "Channels of the fire brigade \u0431\r\nValid to 2027";

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
  std::u16string Text() { return QString::fromUtf8(Embedded).toStdU16String(); }
};

struct Word {
  int page;
  double x, y; // points from the corner of the sheet, y of the line's top
  QString text;
};

std::vector<Word> WordsOf(const std::string& xml) {
  static const QRegularExpression pattern(
      QStringLiteral("<page |<word xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\"[^>]*>([^<]*)</word>"));
  std::vector<Word> words;
  int page = 0;
  for (auto i = pattern.globalMatch(QString::fromStdString(xml)); i.hasNext();) {
    const QRegularExpressionMatch match = i.next();
    if (match.captured(3).isEmpty())
      ++page;
    else
      words.push_back({page, match.captured(1).toDouble(), match.captured(2).toDouble(), match.captured(3)});
  }
  return words;
}

// Every text that was laid out is in the file, at its place to a third of a point, and nothing else is.
TEST_F(PdfPrinterTest, TheFileHoldsEveryTextAtItsPlace) {
  ASSERT_EQ(Print(FullValues(), Text(), {true, true, true}), std::nullopt);
  const std::vector<Word> words = WordsOf(Tool("pdftotext", {"-bbox", Pdf(), "-"}));
  const ReportTexts texts = TextsOf(FullValues(), Text());
  PdfPrinter measure(files, "unused");
  const PrintArea area = {11906 - 2 * 340.157, 16838 - 2 * 340.157};
  qsizetype characters = 0;
  int number = 0;
  for (const auto layOut : {ChannelReportPage, TtsReportPage, InfoReportPage}) {
    const ReportPage page = layOut(texts, {measure, area});
    ++number;
    for (const PageText& text : page.texts) {
      const QStringList parts = QString::fromStdString(text.text).split(' ', Qt::SkipEmptyParts);
      characters += parts.join("").size();
      if (parts.isEmpty() || text.text.front() == ' ') continue;
      const double x = MarginPoints + text.x * page.scale / 20;
      const double y = MarginPoints + text.y * page.scale / 20;
      EXPECT_TRUE(std::ranges::any_of(words,
                                      [&](const Word& word) {
                                        return word.page == number && word.text.startsWith(parts.first()) &&
                                               std::abs(word.x - x) < 0.35 &&
                                               std::abs(word.y - y) < 1.5; // the tools' tops of lines differ
                                      }))
          << text.text << " at " << x << ", " << y << " on page " << number;
    }
  }
  qsizetype printed = 0;
  for (const Word& word : words)
    printed += word.text.size();
  EXPECT_EQ(printed, characters);
  EXPECT_EQ(words.back().page, 3);
}

// Small pictures in grey, so that another way of smoothing edges makes no difference that counts. To renew them run
// this with MR4500X_KEEP_PICTURES naming a folder, look at what it leaves there, and copy it to golden/.
TEST_F(PdfPrinterTest, ThePagesLookAsTheyShould) {
  ASSERT_EQ(Print(FullValues(), Text(), {true, true, true}), std::nullopt);
  const QString keepIn = qEnvironmentVariable("MR4500X_KEEP_PICTURES");
  if (!keepIn.isEmpty()) QFile::copy(Pdf(), keepIn + "/reports.pdf");
  Tool("pdftoppm", {"-r", "50", "-gray", "-png", Pdf(), QString::fromStdString(Path("page"))});
  for (const char* const name : {"page-1.png", "page-2.png", "page-3.png"}) {
    const QImage page(QString::fromStdString(Path(name)));
    if (!keepIn.isEmpty()) page.save(keepIn + "/" + name);
    const QImage golden(QStringLiteral(GOLDEN_PICTURES "/") + name);
    EXPECT_EQ(page.size(), golden.size()) << name;
    if (page.size() != golden.size()) continue;
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
    PdfPrinter printer(files, Path("out.pdf"));
    ASSERT_EQ(printer.BeginJob("title"), std::nullopt);
    printer.PrintText(0, 0, {}, "text");
    printer.AbandonJob();
  }
  EXPECT_EQ(Content("out.pdf"), "old");
  files.unwritable.insert(Path("out.pdf"));
  EXPECT_EQ(Print(NewValues(), {}, {false, true, false}), "The PDF file " + Path("out.pdf") + " can't be written.");
  EXPECT_EQ(Content("out.pdf"), "old");
  PdfPrinter none(files, "");
  EXPECT_EQ(PrintReports(none, TextsOf(NewValues()), {true, false, false}),
            "There is no printer. \"Printer...\" offers to print to a PDF file.");
}

} // namespace
} // namespace mr4500x

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
