// Tests: tests/zavel/DictionariesTest.cpp
#include "Dictionaries.h"

#include <string.h>

#include <algorithm>
#include <string_view>

#include "SilentOutput.h"
#include "StyleFile.h"
#include "TranslationLines.h"
#include "Utf8.h"
#include "base/ProgramPlaces.h"
#include "config/WorkPaths.h"
#include "config/WorkStyles.h"
#include "config/ZFWPlistKeys.h"
#include "foundation/Storage.h"
#include "platform/Bundle.h"
#include "platform/PropertyLists.h"
#include "shell/ProcessObjects.h"
#include "ui/ZFNotifications.h"

namespace zavel::host {
namespace {

constexpr const char* kResultFile = "LookResult";
constexpr const char* kLookUp = "zfDictLookupNotification";
constexpr const char* kReinstall = "Install zavel again, or run: zavel prefs dict disable translation";
constexpr const char* kSwitchOff = "To go on without it, run: zavel prefs dict disable translation";
constexpr const char* kMakeAgain = "Run: zavel dict build, or: zavel prefs dict disable translation";
constexpr const char* kHintMark = "; run: ";  // what follows it in a complaint is a command
constexpr int kSignals = 128;                 // an exit status above it tells the signal that ended a program

struct KindRow {
  RowKind kind;
  const char* type;
  const char* name;  // key of its localized name
};

constexpr KindRow kKinds[] = {
    {RowKind::kBilingual, ZFWMirellType, "StandardDictionary"},
    {RowKind::kTranslation, ZFWTransType, "TranslationDictionary"},
};

constexpr const char* kLanguages[] = {"en", "ja"};

const char* keyOfName(RowKind kind) {
  for (const KindRow& row : kKinds) {
    if (row.kind == kind) return row.name;
  }
  return "";
}

std::string member(const Value& map, const char* key) {
  const Value* value = map.find(key);
  return value ? value->string() : std::string();
}

std::string endOf(int status) {
  const char* signal = status > kSignals ? strsignal(status - kSignals) : nullptr;
  if (!signal) return " ended with status " + std::to_string(status);
  return " was killed by signal " + std::to_string(status - kSignals) + " (" + signal + ")";
}

// Lines end in a CR inside the system.
std::string withLineFeeds(std::string text) {
  std::replace(text.begin(), text.end(), '\r', '\n');
  std::replace(text.begin(), text.end(), '\t', ' ');
  while (!text.empty() && text.back() == '\n') text.pop_back();
  return text;
}

// What the helper program could not search for its answer; empty when it has searched everything.
std::string unsearched(const Value& answer) {
  const Value* list = answer.find("Unsearched");
  const Value::Array* parts = list ? list->asArray() : nullptr;
  return parts && !parts->empty() ? printable(parts->front().string()) : std::string();
}

// Nothing was found, but not all was searched. The helper program has told each part.
Failure partFailure(const std::string& complaint) {
  const size_t mark = complaint.find(kHintMark);
  const std::string hint = mark == std::string::npos
                               ? "Put a sound one in its place, or remove it."
                               : "Run: " + complaint.substr(mark + std::string_view(kHintMark).size());
  return {kExitEnvironment, kDamagedPart,
          "the translation dictionary was not searched in whole: " + complaint.substr(0, mark), hint};
}

uint32_t colourOf(const TextStyle& style) {
  if (!style.color) return 0;
  const auto part = [](double share) { return static_cast<uint32_t>(share * 255 + 0.5) & 0xFF; };
  return part(style.color->red) << 16 | part(style.color->green) << 8 | part(style.color->blue);
}

std::vector<Span> spansOf(const AttributedText& text) {
  std::vector<Span> spans;
  size_t begin = 0;
  for (const AttributedText::Run& run : text.runs()) {
    spans.push_back({begin, run.style.bold, run.style.italic, colourOf(run.style)});
    begin += text.substring(run.range).size();
  }
  return spans;
}

}  // namespace

std::string dictionaryName(RowKind kind) {
  return defaultPlatform().bundle().localized(keyOfName(kind));
}

std::vector<std::string> dictionaryNames(RowKind kind) {
  std::vector<std::string> names;
  for (const char* language : kLanguages) {
    Value texts;
    const std::string file = resourceFolder() + "/" + language + ".lproj/Localizable.plist";
    if (!defaultPlatform().propertyLists().readFile(file, &texts)) continue;
    names.push_back(member(texts, keyOfName(kind)));
  }
  return names;
}

Dictionaries::Dictionaries(HostPlatform& platform) : platform_(platform) {
  rssTimerFlag = true;  // a look-up fetches no feeds
}

Dictionaries::~Dictionaries() = default;

MirellDictionaryManager* Dictionaries::open() {
  {
    const SilentOutput silent;
    controller_.initController(Rect(), this, field_, progress_, kResultFile);
  }
  if (searches(RowKind::kTranslation)) prepareTool();
  return gMirellModule ? gMirellModule->objectODM() : nullptr;
}

// Processes that run side by side must not meet in the files that go to the helper and come from it, and a
// place where nothing can be written has no room for them.
void Dictionaries::prepareTool() {
  prepared_ = folder_.make();
  if (!prepared_) return;
  gSourcePath = folder_.path() + "/SourceFile.txt";
  gResultPath = folder_.path() + "/ResultFile.plist";
  gDictPath = folder_.path() + "/ZP.plist";
  if (areStyles(gStylePath)) return;
  const std::string styles = folder_.path() + "/ZavelStyle";
  if (writeStylesIfMissing(styles, styleLanguage())) gStylePath = styles + ".plist";
}

void Dictionaries::setMode(Mode mode) {
  if (mode == Mode::kAll || !controller_.dMenu()) return;
  const int tag = mode == Mode::kPos ? 2 : mode == Mode::kPhrase ? 3 : 4;
  const int index = controller_.dMenu()->indexOfTag(tag);
  if (index >= 0) controller_.dMenu()->choose(static_cast<size_t>(index));
}

std::vector<RowKind> Dictionaries::kinds() const {
  std::vector<RowKind> kinds;
  auto& controller = const_cast<ZavelLexController&>(controller_);
  const ZFWDictTabView& tab = controller.zfwPrefController().dictTab();
  const int selected = tab.selectedDict();
  if ((selected & (kSelectedMirell | kSelectedBook | kSelectedTrans)) == 0) return kinds;
  for (const Value& item : tab.dictListArray()) {
    if (member(item, ZFWSelectStatusKey) == ZFWNoStatus) continue;
    for (const KindRow& row : kKinds) {
      if (member(item, ZFWDictTypeKey) == row.type) kinds.push_back(row.kind);
    }
  }
  return kinds;
}

bool Dictionaries::searches(RowKind kind) const {
  const std::vector<RowKind> all = kinds();
  return std::find(all.begin(), all.end(), kind) != all.end();
}

void Dictionaries::ask(const std::string& word, std::optional<size_t> row, LookResult* result) {
  platform_.tools().forget();
  // What a tool that writes nothing leaves there would be taken for its answer.
  if (prepared_) storage().remove(gResultPath);
  NotificationObject look;
  Value::Dict members{{ZFTextKey, word}};
  if (row) members[ZFRowKey] = static_cast<int64_t>(*row);
  look.value = std::move(members);
  look.identities[ZFParentKey] = this;
  NotificationCenter::shared().post(kLookUp, look, this);
  S_Controller& tab = controller_.sController();
  const size_t count = tab.rowCount();
  result->rows.clear();
  result->rows.reserve(count);
  for (size_t i = 0; i < count; ++i) result->rows.push_back(rowAt(i, word));
  const int shown = tab.nowSelectedRow();
  if (shown >= 0 && static_cast<size_t>(shown) < count) show(&result->rows[static_cast<size_t>(shown)]);
  result->failures.clear();
  if (!searches(RowKind::kTranslation)) return;
  // A list that is full ends the walk.
  result->translationUnasked = count >= referenceMaxCount && !platform_.tools().last();
  if (result->translationUnasked) return;
  if (Failure failure = toolFailure(*result)) result->failures[RowKind::kTranslation] = std::move(failure);
}

Row Dictionaries::rowAt(size_t index, const std::string& word) {
  const ResultRow& row = controller_.sController().hwResultArray()[index];
  Row out;
  if (const auto* answer = std::get_if<TransData>(&row)) {
    out.kind = RowKind::kTranslation;
    out.title = withoutControls(answer->indexTitle());
    out.text = namedEntries(withoutControls(withLineFeeds(answer->detailString())));
    out.lookedUp = lookedUpAs(word, out.text);
  } else {
    out.title = withoutControls(std::get<MirellData>(row).indexTitle());
  }
  return out;
}

void Dictionaries::show(Row* row) {
  row->shown = true;
  if (row->kind != RowKind::kBilingual) return;
  const AttributedText& text = controller_.sController().hwResultView().text();
  row->text = withLineFeeds(text.text());
  row->spans = spansOf(text);
  if (std::string clean = withoutControls(row->text); clean != row->text) {
    row->text = std::move(clean);
    row->spans.clear();
  }
}

bool Dictionaries::helperToldWhy() const {
  const auto& last = platform_.tools().last();
  return last && last->spoke && last->result.exitStatus == kExitDamaged;
}

// What kept the helper program from answering the last word; none when nothing did.
Failure Dictionaries::toolFailure(const LookResult& result) const {
  const auto failure = [](const char* code, const std::string& what, const std::string& hint) {
    return Failure{kExitEnvironment, code, "the translation dictionary " + what, hint};
  };
  const auto& last = platform_.tools().last();
  if (!last) {
    return failure("no_folder", "was not searched: no file for its program can be written",
                   "Set TMPDIR to a folder that you can write to.");
  }
  const std::string program = "its program " + last->program;
  const ToolResult& end = last->result;
  if (end.interrupted) return failure("helper_interrupted", "was interrupted", "Ask again.");
  if (!end.started) {
    return failure("helper_missing", "was not searched: " + program + " can't be started", kReinstall);
  }
  if (end.stopped)
    return failure("helper_failed", "gave no answer: " + program + " wrote without end", kSwitchOff);
  if (end.exitStatus == kExitDamaged) {
    return failure("helper_failed", "gave no answer: " + program + endOf(end.exitStatus), kMakeAgain);
  }
  if (end.exitStatus != 0) {
    return failure("helper_failed", "gave no answer: " + program + endOf(end.exitStatus), kSwitchOff);
  }
  Value answer;
  const Value* found = nullptr;
  if (platform_.propertyLists().readFile(gResultPath, &answer)) found = answer.find("Search");
  const Value::Array* elements = found ? found->asArray() : nullptr;
  if (elements && result.hasAnswer(RowKind::kTranslation)) return {};
  if (elements && elements->empty()) {
    const std::string complaint = unsearched(answer);
    return complaint.empty() ? Failure() : partFailure(complaint);
  }
  return failure("helper_failed", "gave no answer: what " + program + " wrote can't be read", kSwitchOff);
}

}  // namespace zavel::host
