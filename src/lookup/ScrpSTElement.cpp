// Tests: tests/lookup/StyleRunsTest.cpp
#include "lookup/ScrpSTElement.h"

#include "foundation/ByteReader.h"

namespace zavel {

void appendScrpSTElement(std::string& record, const ScrpSTElement& run) {
  appendBE32(record, run.scrpStartChar);
  appendBE16(record, run.scrpHeight);
  appendBE16(record, run.scrpAscent);
  appendBE16(record, static_cast<uint16_t>(run.scrpFont));
  record.push_back(static_cast<char>(run.scrpFace));
  record.push_back(0);  // filler
  appendBE16(record, run.scrpSize);
  appendBE16(record, run.scrpColor.red);
  appendBE16(record, run.scrpColor.green);
  appendBE16(record, run.scrpColor.blue);
}

}  // namespace zavel
