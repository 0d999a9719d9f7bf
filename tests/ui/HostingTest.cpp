// The host of docs/hosting.md's first chapter, in the small: it shows a window and passes a search on.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ui/SearchField.h"
#include "ui/TabView.h"
#include "ui/TableView.h"
#include "ui/TextView.h"
#include "ui/ZEFView.h"

namespace zavel {
namespace {

// The logic of a window, as a tab would be: a search lists rows, a selected row is shown.
class Logic : public TableDataSource {
 public:
  Logic() {
    view.addChild(field);
    view.addChild(tabs);
    tabs.addItem("sTab", tab);
    tab.addChild(list);
    tab.addChild(detail);
    list.setColumns({{"itemList"}});
    list.setDataSource(this);
    field.onInsertNewline = [this] { return search(); };
  }

  size_t rowCount() const override { return rows.size(); }
  Value cell(size_t row, const std::string&) const override { return rows[row]; }

  ZEFView view;
  SearchField field;
  TabView tabs;
  View tab;
  TableView list;
  TextView detail;

 private:
  bool search() {
    rows = {field.text(), field.text() + " [行く]"};
    list.reloadData();
    list.selectRow(0);
    return true;
  }
  std::vector<std::string> rows;
  Connection selected_ = list.selectionChanged.connect(
      [this] { detail.setText(list.cell(static_cast<size_t>(list.selectedRow()), "itemList").string()); });
};

// What is to be seen, one line a widget.
std::string show(const View& view) {
  if (view.hidden()) return "";
  std::string shown;
  if (const auto* field = dynamic_cast<const SearchField*>(&view)) shown = "field " + field->text() + "\n";
  if (const auto* text = dynamic_cast<const TextView*>(&view)) shown = "text " + text->text().text() + "\n";
  if (const auto* table = dynamic_cast<const TableView*>(&view)) {
    for (size_t row = 0; row < table->rowCount(); ++row) {
      const bool on = table->selectedRow() == static_cast<int>(row);
      shown += (on ? "> " : "- ") + table->cell(row, table->columns()[0].identifier).string() + "\n";
    }
  }
  for (const View* child : view.children())
    if (child->shown()) shown += show(*child);
  return shown;
}

TEST(Hosting, AHostShowsAndDrivesAWindowWithoutKnowingItsLogic) {
  Logic logic;
  std::vector<const View*> stale;
  const Connection changes = logic.view.changed.connect([&](View& v) { stale.push_back(&v); });
  EXPECT_EQ(show(logic.view), "field \ntext \n");

  EXPECT_TRUE(logic.field.type("go"));
  EXPECT_TRUE(logic.field.insertNewline());
  EXPECT_EQ(show(logic.view), "field go\n> go\n- go [行く]\ntext go\n");
  EXPECT_EQ(stale, (std::vector<const View*>{&logic.field, &logic.list, &logic.list, &logic.detail}));

  EXPECT_TRUE(logic.list.choose(1));
  EXPECT_EQ(show(logic.view), "field go\n- go\n> go [行く]\ntext go [行く]\n");

  logic.tab.setHidden(true);
  EXPECT_EQ(show(logic.view), "field go\n");
  EXPECT_FALSE(logic.list.choose(0));
}

}  // namespace
}  // namespace zavel
