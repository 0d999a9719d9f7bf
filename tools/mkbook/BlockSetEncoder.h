// Packs sets of blocks as books have them: codes of three bytes, each a match of up to 15 bytes with what
// came before and one more byte (docs/book-format.md, "Block sets").
#ifndef MKBOOK_BLOCKSETENCODER_H
#define MKBOOK_BLOCKSETENCODER_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zavel::mkbook {

// Gives the fewest codes that any encoder can. Taking the longest match each time does: the rest of a match
// is a match as well, so that a code begun later never reaches further than one begun earlier.
class BlockSetEncoder {
 public:
  BlockSetEncoder();

  // One set: number of codes, fill byte, codes. `bytes` are at most 32768, more are not looked at. The same
  // bytes always give the same set.
  std::string encode(std::string_view bytes);

 private:
  static constexpr int kNone = -1;

  // Places that begin with the same bytes, the latest first. Places of other bytes may be among them.
  class Chain {
   public:
    explicit Chain(size_t length) : length_(length) {}
    void clear(size_t places);
    void add(const uint8_t* bytes, int place);
    int latest(const uint8_t* bytes) const { return head_[slot(bytes)]; }
    int before(int place) const { return previous_[static_cast<size_t>(place)]; }
    size_t length() const { return length_; }

   private:
    size_t slot(const uint8_t* bytes) const;

    size_t length_;  // bytes that places are filed by
    std::vector<int> head_;
    std::vector<int> previous_;
  };

  struct Match {
    size_t length = 0;
    int place = 0;
  };

  void load(std::string_view bytes);
  void addUpTo(int place);
  Match longest(int place, size_t limit) const;
  void search(const Chain& chain, int place, size_t enough, Match* best) const;
  bool inReach(int candidate, int place) const;

  std::vector<uint8_t> work_;  // fill bytes, then the set
  int end_ = 0;                // place behind the set
  int added_ = 0;              // the place that comes next into the tables
  std::array<int, 0x100> one_{};
  std::vector<int> two_;
  Chain three_, four_, six_;
};

}  // namespace zavel::mkbook

#endif
