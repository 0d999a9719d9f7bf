// The program as a child process: what it prints where, and how it ends.
#ifndef TESTS_ZAVEL_COMMAND_H
#define TESTS_ZAVEL_COMMAND_H

#include <map>
#include <string>
#include <vector>

namespace zavel::test {

struct Outcome {
  int status = 0;   // exit status; 128 and the signal's number when a signal ended it
  std::string out;  // on a terminal all that stood there, without carriage returns
  std::string err;
};

class Command {
 public:
  // `arguments` behind the program's name. The environment holds PATH and what env() adds, nothing else.
  explicit Command(std::vector<std::string> arguments) : arguments_(std::move(arguments)) {}

  Command& env(const std::string& name, const std::string& value);
  Command& input(std::string bytes);     // on standard input; empty without this
  Command& inputFile(std::string path);  // the same from a file
  Command& outputFile(std::string path);
  Command& closed(int fd);
  Command& descriptors(unsigned most);  // so many may be open at once
  // Standard input, output and error are a terminal of this size.
  Command& terminal(unsigned short rows, unsigned short columns);
  // Types `keys` on it; 0x04 ends the input.
  Command& typed(std::string keys);
  // Sends `signal` once `path` exists, and again after a while until it was sent so many times.
  Command& signalAt(std::string path, int signal, int times = 1);

  Outcome run() const;

 private:
  [[noreturn]] void become(const std::string& folder, int slave) const;
  void sendSignal(int child) const;

  std::vector<std::string> arguments_;
  std::map<std::string, std::string> env_;
  std::string input_, inputFile_, outputFile_, awaited_, keys_;
  int closed_ = -1, signal_ = 0, times_ = 1;
  unsigned descriptors_ = 0;
  unsigned short rows_ = 0, columns_ = 0;
};

}  // namespace zavel::test

#endif
