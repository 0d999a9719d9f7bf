#include "ui/TableView.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "ui/Changes.h"

namespace zavel {
namespace {

using test::Changes;
using test::Count;
using test::Doomed;

// Rows of one text each, in column "itemList"; column "number" counts them.
class Rows : public TableDataSource {
 public:
  size_t rowCount() const override { return rows.size(); }
  Value cell(size_t row, const std::string& column) const override {
    if (column == "number") return static_cast<int64_t>(row);
    return rows.at(row);
  }
  bool setCell(size_t row, const std::string&, const Value& value) override {
    rows.at(row) = value.string();
    return accepts;
  }
  bool moveRow(size_t from, size_t to) override {
    std::swap(rows.at(from), rows.at(to));
    return accepts;
  }

  std::vector<std::string> rows;
  bool accepts = true;
};

class ATable : public ::testing::Test {
 protected:
  ATable() {
    rows.rows = {"go", "going", "gone"};
    table.setColumns({{"itemList", "", true}, {"number"}});
    table.setDataSource(&rows);
  }
  Rows rows;
  TableView table;
};

TEST_F(ATable, GivesTheCellsOfItsSource) {
  EXPECT_EQ(table.rowCount(), 3u);
  EXPECT_EQ(table.cell(1, "itemList").string(), "going");
  EXPECT_EQ(table.cell(2, "number").integer(-1), 2);
  EXPECT_TRUE(table.cell(3, "itemList").isNull());
  EXPECT_TRUE(table.cell(0, "titleList").isNull());
}

TEST_F(ATable, SeesNewRowsAtAReloadAndNotBefore) {
  rows.rows.push_back("went");
  EXPECT_EQ(table.rowCount(), 3u);
  EXPECT_TRUE(table.cell(3, "itemList").isNull());
  Changes changes(table);
  table.reloadData();
  EXPECT_EQ(table.rowCount(), 4u);
  EXPECT_EQ(table.cell(3, "itemList").string(), "went");
  EXPECT_EQ(changes.n, 1);
}

TEST_F(ATable, AsksTheSourceForNoRowThatItHasLost) {
  rows.rows.clear();
  EXPECT_TRUE(table.cell(0, "itemList").isNull());
  EXPECT_FALSE(table.edit(0, "itemList", "x"));
  EXPECT_FALSE(table.moveRow(0, 1));
}

TEST_F(ATable, TellsOfASelectionOnlyWhenItIsAnother) {
  Count selections(table.selectionChanged);
  Changes changes(table);
  EXPECT_EQ(table.selectedRow(), -1);
  EXPECT_TRUE(table.selectRow(0));
  EXPECT_TRUE(table.selectRow(0));
  EXPECT_EQ(selections.n, 1);
  EXPECT_TRUE(table.choose(0));
  EXPECT_EQ(selections.n, 1);
  EXPECT_TRUE(table.choose(2));
  EXPECT_EQ(selections.n, 2);
  EXPECT_EQ(table.selectedRow(), 2);
  table.deselect();
  table.deselect();
  EXPECT_EQ(selections.n, 3);
  EXPECT_EQ(changes.n, 3);
}

TEST_F(ATable, KeepsItsSelectionWhenToldARowThatIsNotThere) {
  table.selectRow(1);
  Count selections(table.selectionChanged);
  EXPECT_FALSE(table.selectRow(3));
  EXPECT_FALSE(table.selectRow(-1));
  EXPECT_FALSE(table.choose(3));
  EXPECT_FALSE(table.choose(-2));
  EXPECT_EQ(table.selectedRow(), 1);
  EXPECT_EQ(selections.n, 0);
  EXPECT_TRUE(table.choose(-1));
  EXPECT_EQ(table.selectedRow(), -1);
}

TEST_F(ATable, ASelectionStaysThroughAReloadWhileItsRowIsThere) {
  table.selectRow(1);
  Count selections(table.selectionChanged);
  rows.rows = {"cat", "dog"};
  table.reloadData();
  EXPECT_EQ(table.selectedRow(), 1);
  EXPECT_EQ(selections.n, 0);
}

TEST_F(ATable, ASelectionGoesWithItsRowAndTheChangeIsToldOnce) {
  table.selectRow(2);
  Count selections(table.selectionChanged);
  Changes changes(table);
  rows.rows = {"cat", "dog"};
  table.reloadData();
  EXPECT_EQ(table.selectedRow(), -1);
  EXPECT_EQ(selections.n, 1);
  EXPECT_EQ(changes.n, 1);
}

TEST_F(ATable, RecordsWhatIsToBeInView) {
  EXPECT_EQ(table.scrolledRow(), -1);
  Changes changes(table);
  table.scrollRowToVisible(2);
  table.scrollRowToVisible(2);
  EXPECT_EQ(table.scrolledRow(), 2);
  EXPECT_EQ(changes.n, 2);
  table.scrollRowToVisible(3);
  table.scrollRowToVisible(-1);
  EXPECT_EQ(table.scrolledRow(), 2);
  EXPECT_EQ(changes.n, 2);
  rows.rows = {"cat"};
  table.reloadData();
  EXPECT_EQ(table.scrolledRow(), -1);
}

TEST_F(ATable, ADoubleClickSelectsFirst) {
  int heard = -1;
  const Connection c = table.doubleClicked.connect([&] { heard = table.selectedRow(); });
  EXPECT_TRUE(table.doubleClick(1));
  EXPECT_EQ(heard, 1);
  EXPECT_FALSE(table.doubleClick(3));
  EXPECT_FALSE(table.doubleClick(-1));
  EXPECT_EQ(table.selectedRow(), 1);
}

TEST_F(ATable, ASelectionThatEndsTheTableEndsTheDoubleClick) {
  Doomed<TableView> doomed;
  doomed->setDataSource(&rows);
  int clicks = 0;
  const Connection end = doomed->selectionChanged.connect([&] { doomed.endInRuins(); });
  const Connection click = doomed->doubleClicked.connect([&] { ++clicks; });
  EXPECT_TRUE(doomed->doubleClick(1));
  EXPECT_TRUE(doomed.ended());
  EXPECT_EQ(clicks, 0);
}

TEST_F(ATable, EditsCellsOfEditableColumns) {
  Changes changes(table);
  EXPECT_TRUE(table.edit(1, "itemList", "went"));
  EXPECT_EQ(rows.rows[1], "went");
  EXPECT_EQ(changes.n, 1);
  EXPECT_FALSE(table.edit(1, "number", 5));
  EXPECT_FALSE(table.edit(1, "titleList", "x"));
  EXPECT_FALSE(table.edit(3, "itemList", "x"));
  rows.accepts = false;
  EXPECT_FALSE(table.edit(1, "itemList", "x"));
  EXPECT_EQ(changes.n, 1);
}

TEST_F(ATable, MovesRowsThatAreThere) {
  Changes changes(table);
  EXPECT_TRUE(table.moveRow(0, 2));
  EXPECT_EQ(rows.rows[2], "go");
  EXPECT_EQ(changes.n, 1);
  EXPECT_FALSE(table.moveRow(1, 1));
  EXPECT_FALSE(table.moveRow(0, 3));
  rows.accepts = false;
  EXPECT_FALSE(table.moveRow(0, 1));
  EXPECT_EQ(changes.n, 1);
}

TEST_F(ATable, TakesNoEventsWhileDisabled) {
  table.setEnabled(false);
  EXPECT_FALSE(table.choose(0));
  EXPECT_FALSE(table.doubleClick(0));
  EXPECT_FALSE(table.edit(0, "itemList", "x"));
  EXPECT_FALSE(table.moveRow(0, 1));
  EXPECT_TRUE(table.selectRow(0));  // the logic may
}

TEST_F(ATable, LosesItsRowsWithItsSource) {
  table.selectRow(1);
  table.setDataSource(nullptr);
  EXPECT_EQ(table.rowCount(), 0u);
  EXPECT_EQ(table.selectedRow(), -1);
  EXPECT_TRUE(table.cell(0, "itemList").isNull());
}

TEST(TableView, HoldsItsColumns) {
  TableView table;
  Changes changes(table);
  table.setColumns({{"rssTransStyle", "Style", true, {"plain", "polite"}, 80}});
  table.setColumns({{"rssTransStyle", "Style", true, {"plain", "polite"}, 80}});
  EXPECT_EQ(changes.n, 1);
  EXPECT_EQ(table.columns()[0].choices[1], "polite");
  EXPECT_EQ(table.columns()[0].width, 80);
}

TEST(TableDataSource, TakesNothingUnlessItSaysSo) {
  class ReadOnly : public TableDataSource {
    size_t rowCount() const override { return 2; }
    Value cell(size_t, const std::string&) const override { return "x"; }
  } source;
  TableView table;
  table.setColumns({{"a", "", true}});
  table.setDataSource(&source);
  EXPECT_FALSE(table.edit(0, "a", "y"));
  EXPECT_FALSE(table.moveRow(0, 1));
  table.setDataSource(nullptr);
}

}  // namespace
}  // namespace zavel
