// A host in C++ with a window of its own, without anything to draw: writes the tables of a first start, looks
// a word up through the main controller and prints the rows that the window would list. Usage: host-window
// FOLDER WORD   (the bilingual dictionary stands in FOLDER/dictionaries/basic)
#include <config/WorkPathTable.h>
#include <config/WorkStyles.h>
#include <platform/NotificationCenter.h>
#include <shell/ProcessObjects.h>
#include <shell/ZavelLexController.h>

#include <iostream>
#include <string>

namespace {

bool makeTables(const std::string& root, const std::string& table) {
  zavel::PathTableRoots roots;
  roots.data = root;
  roots.cache = root + "/cache";
  roots.preferences = root + "/preferences";
  roots.documents = root + "/documents";
  roots.helpers = root + "/helpers";
  return zavel::writePathTableIfMissing(table, roots) &&
         zavel::writeStylesIfMissing(roots.preferences + "/ZavelStyle", zavel::StyleLanguage::kEnglish);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const std::string table = std::string(argv[1]) + "/table";
  if (!makeTables(argv[1], table)) return 3;
  zavel::setHostPathTable(table);

  const int token = 0;
  zavel::ZavelLexController controller;
  controller.initController({0, 0, 800, 600}, &token, {zavel::ZFDictTab});
  zavel::NotificationObject look;
  look.value = zavel::Value::Dict{{zavel::ZFTextKey, zavel::Value(argv[2])}};
  look.identities[zavel::ZFParentKey] = &token;
  zavel::NotificationCenter::shared().post("zfDictLookupNotification", look);

  zavel::S_Controller& tab = controller.sController();
  for (size_t row = 0; row < tab.hwListView().rowCount(); ++row) {
    std::cout << tab.hwListView().cell(row, zavel::S_Controller::kItemColumn).string() << '\n';
  }
  std::cout << (tab.hwResultView().text().text().empty() ? "nothing" : "something") << " is shown\n";
  return 0;
}
