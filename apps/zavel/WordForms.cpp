// Tests: tests/zavel/WordFormsTest.cpp
#include "WordForms.h"

#include <algorithm>

#include "WordBytes.h"

namespace zavel::host {
namespace {

constexpr int kNounBase = 1, kAdjectiveBase = 3, kVerbBase = 6, kThirdPerson = 7;

int baseCodeOf(Paradigm paradigm) {
  return paradigm == kNounForms ? kNounBase : paradigm == kAdjectiveForms ? kAdjectiveBase : kVerbBase;
}

// The tables have no code for the other persons of the one verb that has forms for them.
std::string nameOf(const Form& form, const std::string& base) {
  const bool otherPerson = form.code == kThirdPerson && base == "be" && form.form != "is";
  return otherPerson ? "present" : formName(form.code);
}

InflectedFrom& entryFor(const std::string& base, std::vector<InflectedFrom>* bases) {
  for (InflectedFrom& known : *bases) {
    if (known.base == base) return known;
  }
  bases->push_back({base, {}});
  return bases->back();
}

void addWay(Paradigm paradigm, const std::string& name, InflectedFrom* base) {
  for (const InflectedFrom::Way& way : base->ways) {
    if (way.paradigm == paradigm && way.name == name) return;
  }
  base->ways.push_back({paradigm, name});
}

}  // namespace

const char* formName(int code) {
  static constexpr const char* kNames[] = {"",
                                           "singular",
                                           "plural",
                                           "positive",
                                           "comparative",
                                           "superlative",
                                           "present",
                                           "third person singular",
                                           "past",
                                           "past participle",
                                           "present participle"};
  return code >= 1 && code <= 10 ? kNames[code] : "";
}

Paradigm paradigmOf(int formCode) {
  return formCode < kAdjectiveBase ? kNounForms : formCode < kVerbBase ? kAdjectiveForms : kVerbForms;
}

unsigned paradigmsOf(const std::vector<std::string>& labels) {
  unsigned paradigms = 0;
  for (const std::string& label : labels) {
    if (label == "名" || label == "固" || label == "固名" || label == "代" || label == "数" ||
        label == "Ｃ") {
      paradigms |= kNounForms;
    } else if (label == "形" || label == "副" || label == "限") {
      paradigms |= kAdjectiveForms;
    } else if (label == "動" || label == "他" || label == "自" || label == "助動") {
      paradigms |= kVerbForms;
    }
  }
  return labels.empty() ? kAllForms : paradigms;
}

unsigned InflectedFrom::paradigms() const {
  unsigned all = 0;
  for (const Way& way : ways) all |= way.paradigm;
  return all;
}

std::vector<std::string> InflectedFrom::namesFor(unsigned paradigms) const {
  std::vector<std::string> names;
  for (const Way& way : ways) {
    if ((way.paradigm & paradigms) != 0) names.push_back(way.name);
  }
  return names;
}

std::vector<InflectedFrom> basesIn(const std::vector<Form>& forms, const std::string& word) {
  const std::string key = englishKeyOf(word);
  std::vector<std::string> keys;
  for (const Form& form : forms) keys.push_back(englishKeyOf(form.form));
  std::vector<InflectedFrom> bases;
  for (size_t i = 0; i < forms.size(); ++i) {
    const Paradigm paradigm = paradigmOf(forms[i].code);
    const int baseCode = baseCodeOf(paradigm);
    if (forms[i].code == baseCode || keys[i] != key) continue;
    for (size_t j = 0; j < forms.size(); ++j) {
      if (forms[j].code != baseCode || keys[j] == key) continue;
      addWay(paradigm, nameOf(forms[i], forms[j].form), &entryFor(forms[j].form, &bases));
    }
  }
  return bases;
}

bool isBaseIn(const std::vector<Form>& forms, const std::string& word) {
  const std::string key = englishKeyOf(word);
  return std::any_of(forms.begin(), forms.end(), [&](const Form& form) {
    return form.code == baseCodeOf(paradigmOf(form.code)) && englishKeyOf(form.form) == key;
  });
}

}  // namespace zavel::host
