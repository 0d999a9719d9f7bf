// The pictures and sounds that a hand-made book names, each file once.
#ifndef MKBOOK_TEXTMEDIA_H
#define MKBOOK_TEXTMEDIA_H

#include <map>
#include <string>
#include <vector>

#include "mkbook/Medium.h"

namespace zavel::mkbook {

class TextMedia {
 public:
  // Names are relative to `folder`, unless they begin with "/".
  explicit TextMedia(std::string folder) : folder_(std::move(folder)) {}

  // The number of a file, from 0; it is read when it comes first. Throws MediumFault.
  size_t add(const std::string& name, bool sound);

  // The number of a file that came before.
  size_t numberOf(const std::string& name, bool sound) const { return numbers_.at({name, sound}); }

  // The bytes of any file that the book names, of at most kLargestMedium. Throws MediumFault.
  std::string read(const std::string& name) const;

  const std::vector<MediumShape>& shapes() const { return shapes_; }

  // Reads a medium anew. Throws Failure when it isn't what it was.
  std::string bytes(size_t number) const;

 private:
  using Key = std::pair<std::string, bool>;  // name, whether it is a sound

  Medium load(const Key& key) const;
  std::string pathOf(const std::string& name) const;

  std::string folder_;
  std::map<Key, size_t> numbers_;
  std::vector<Key> keys_;
  std::vector<MediumShape> shapes_;
};

}  // namespace zavel::mkbook

#endif
