// The forms (katati) that the rules make of a headword, one set for the first part-of-speech line of each
// of noun, adjective and verb. Rule-made forms are for words that the conjugation dictionary doesn't serve.
#ifndef ENGINE_KATUYOKATATI_H
#define ENGINE_KATUYOKATATI_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/KatuyoMidasi.h"

namespace zavel::engine {

// A form in the making.
struct KatuyoForm {
  uint16_t hinnum;  // see engine/KatuyoForms.h
  std::string text;
};

// What is put at the end of a headword: `suffix` at the headword's length plus `delta`, so that -1 takes
// the place of its last letter. A suffix that begins with "-" takes the place of its last syllable.
struct KatuyoSuffix {
  int delta;
  std::string_view suffix;
};

// Makes the forms of all part-of-speech lines of the entry. `SetIrregularFlg` has the parts of speech that
// need none, as bits kHinsiMeisi, kHinsiKeiyo, kHinsiDousi. An entry without headword has no forms.
void SetConjugeteInfo(const DicOneMidasiInfo& info, uint8_t SetIrregularFlg, std::vector<KatuyoForm>* forms);

// The part of speech of a label between "[" and "]": kHinsiMeisi, kHinsiKeiyo or kHinsiDousi. 0 for any
// other and for one that *seen holds already; otherwise it is added to *seen.
uint8_t GetHinsiInfo(std::string_view label, uint8_t* seen);

// Appends the forms of one part of speech. `line` is what follows the label on its line.
void SetConjugete(const DicOneMidasiInfo& info, uint8_t hinsi, std::string_view line,
                  std::vector<KatuyoForm>* forms);
void SetMeisi(const DicOneMidasiInfo& info, std::string_view line, std::vector<KatuyoForm>* forms);
void SetDousi(const DicOneMidasiInfo& info, std::string_view line, std::vector<KatuyoForm>* forms);
void SetKeiyoFukusi(const DicOneMidasiInfo& info, std::string_view line, std::vector<KatuyoForm>* forms);

// The ending of the plural and of the third person: "s", "es" or "ies".
KatuyoSuffix CheckES(const DicOneMidasiInfo& info);

// Appends the headword with `suffix` as the form `hinnum`.
void MakeNewConjugete(const DicOneMidasiInfo& info, KatuyoSuffix suffix, uint16_t hinnum,
                      std::vector<KatuyoForm>* forms);

// Appends the made forms as records (engine/KatuyoDic.h). To no records all of them; to irregular records
// those of the parts of speech that `SetIrregularFlg` lacks, where a part closes with its last form, so that
// a second set of the same part is left out.
void OutputKatuyo(const std::vector<KatuyoForm>& forms, uint8_t SetIrregularFlg, std::string* records);

}  // namespace zavel::engine

#endif
