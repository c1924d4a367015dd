// One cell in every table that takes one.
#include "channel_text.h"
#include "plan.h"
#include "rows.h"

#include <algorithm>

namespace mr4500x {
namespace {

// What a table with the cell makes of the image's channel 1; "refused" for none.
class CellTables {
public:
  CellTables(const std::string& heading, const std::string& cell, char decimalSeparator)
      : m_texts(BuildFieldTexts(decimalSeparator)), m_list("number;" + heading + "\n1;" + cell + '\n'),
        m_pasted(heading + ";number\n" + cell + ";CH1\n"),
        m_rows(HeadingOfFleet(heading) + ";label\n" + cell + ";A\n") {
    m_shown = NewConfiguration(m_image, m_texts, {});
  }

  std::string Imported() const {
    RadioImage image = m_image;
    const ChannelList list = ReadChannelList(m_list, m_texts);
    const bool isTaken = list.bad.empty() && ApplyCells(image, CellsOf(list.rows), m_texts).empty();
    return Taken(isTaken, list.rows, Decode(image, m_texts).configuration);
  }
  std::string Dropped() const {
    Configuration shown = m_shown;
    const ChannelList list = ReadChannelList(m_list, m_texts);
    const bool isTaken = list.bad.empty() && ApplyCells(shown, CellsOf(list.rows), m_texts).empty();
    return Taken(isTaken, list.rows, shown);
  }
  std::string Pasted() const {
    Configuration shown = m_shown;
    const ChannelList list = TakeChannels(shown, 0, m_pasted, m_texts);
    return Taken(list.bad.empty(), list.rows, shown);
  }
  std::string OfAFleet() const {
    const PlanCheck check = MakePlan(m_image, "", m_rows, m_texts, [](auto bytes) { return std::string(bytes); });
    if (!check.problems.empty()) return "refused";
    return Value(Decode(ImageFor(check.plan, 1, m_texts), m_texts).configuration, check.plan.rows[0].values.at(0).at);
  }

private:
  static std::string HeadingOfFleet(const std::string& heading) {
    const bool isKey = std::ranges::find(Fields(), heading, &Field::key) != Fields().end();
    std::string whole = heading;
    return whole.insert(whole.starts_with('"') ? 1 : 0, isKey ? "channels.1." : "CH1 ");
  }
  std::string Value(const Configuration& shown, FieldAt at) const {
    std::string value = ValueOf(shown, at);
    std::ranges::replace(value, ',', '.');
    return value;
  }
  std::string Taken(bool isTaken, const std::vector<ChannelRow>& rows, const Configuration& shown) const {
    return isTaken ? Value(shown, rows.at(0).cells.at(0).assignment.at) : "refused";
  }

  FieldTexts m_texts;
  RadioImage m_image;
  Configuration m_shown;
  std::string m_list, m_pasted, m_rows;
};

TEST(CellsTest, AreAcceptedOrRefusedAlikeByImportPasteDropAndFleet) {
  for (const Row& row : RowsOf(CASES "cells.txt", "(.+?) = (.*) -> (.*)"))
    for (const char decimalSeparator : {'.', ','}) {
      const CellTables tables(Unescaped(row[1]), Unescaped(row[2]), decimalSeparator);
      const std::string results = "import " + tables.Imported() + ", paste " + tables.Pasted() + ", drop " +
                                  tables.Dropped() + ", fleet " + tables.OfAFleet();
      EXPECT_EQ(results, "import " + row[3] + ", paste " + row[3] + ", drop " + row[3] + ", fleet " + row[3])
          << row[0] << ' ' << decimalSeparator;
    }
}

} // namespace
} // namespace mr4500x
