// A host in C++: asks the manager for the base form of a word.
#include <lookup/MirellDictionaryManager.h>

#include <iostream>

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  zavel::MirellDictionaryManager manager;
  manager.InitializeDictionaries(argv[1], nullptr, nullptr, nullptr);
  std::cout << manager.GetOrigin(argv[2]) << '\n';
  return 0;
}
