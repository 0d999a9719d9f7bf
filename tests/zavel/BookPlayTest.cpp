// `zavel book sound --play`, into a file in place of a card.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>

#include "support/BookWriter.h"
#include "support/TempFolder.h"
#include "zavel/Command.h"

namespace zavel::test {
namespace {

const std::string kSamples = "\x01\x02\x03\x04\x05\x06\x07\x08";

class BookPlayTest : public testing::Test {
 protected:
  // One entry with a sound in it, PCM of `format` or chunks.
  std::string book(uint16_t format, const std::string& sound) {
    Text text;
    const auto size = static_cast<uint32_t>(sound.size());
    text.begin().indent(1).word(0x1F41).word(0x0100).chars("wren").word(0x1F61).feed();
    tag_ = text.size();
    text.word(0x1F4A).word(0x0101).word(format).address(10, 0).address(10 + size / 2048, size % 2048);
    text.word(0x2121).chars("歌").word(0x1F6A).feed().end();
    BookWriter writer;
    writer.region(0, 1, padded(text.bytes())).region(0xD8, 10, padded(sound));
    return writer.write(folder_);
  }

  Outcome play(const std::string& catalog, std::vector<std::string> more = {"--play"},
               const std::string& driver = "disk") {
    std::vector<std::string> arguments = {"book", "sound", catalog, "1:" + std::to_string(tag_)};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return Command(arguments)
        .env("ZAVEL_ROOT", folder_.file("root"))
        .env("SDL_AUDIODRIVER", driver)
        .env("SDL_DISKAUDIODELAY", "0")
        .env("SDL_DISKAUDIOFILE", folder_.file("heard"))
        .run();
  }
  // Behind the silence that a card gets until the sound begins.
  std::string heard() const {
    const std::string all = folder_.read("heard");
    return all.substr(std::min(all.size(), all.find_first_not_of('\0')), kSamples.size());
  }

  TempFolder folder_;
  size_t tag_ = 0;
};

TEST_F(BookPlayTest, TellsWhatItPlays) {
  const Outcome outcome = play(book(0x0100, kSamples));
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, "sound 1:22, 歌: 1 channel, 44100 Hz, 16 bits, 0.0 s, 52 bytes (wav)\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(heard(), kSamples);
}

TEST_F(BookPlayTest, SavesItAsWell) {
  const Outcome outcome = play(book(0x0100, kSamples), {"--play", "-o", folder_.file("wren.wav")});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(folder_.read("wren.wav").substr(44), kSamples);
  EXPECT_EQ(heard(), kSamples);
}

TEST_F(BookPlayTest, GivesOneDocument) {
  const Outcome outcome = play(book(0x0100, kSamples), {"--play", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out.substr(0, 28), "{\"schema\":1,\"status\":\"found\"");
  EXPECT_EQ(outcome.out.find('\n'), outcome.out.size() - 1);
  EXPECT_EQ(heard(), kSamples);
  const Outcome failed = play(book(0x0100, kSamples), {"--play", "--json"}, "no-such-driver");
  EXPECT_EQ(failed.status, 3);
  EXPECT_EQ(
      failed.out,
      "{\"schema\":1,\"status\":\"error\",\"error\":{\"code\":\"no_sound_output\",\"message\":\"no sound can "
      "be "
      "played here: there is no card or server for it\",\"hint\":\"Save it for another program: --output "
      "FILE\"}}\n");
}

TEST_F(BookPlayTest, TellsThatNothingCanPlay) {
  const Outcome outcome = play(book(0x0100, kSamples), {"--play"}, "no-such-driver");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err,
            "zavel: no sound can be played here: there is no card or server for it\n"
            "Save it for another program: --output FILE\n");
}

// Twenty seconds at the speed of a card: an interrupt ends the program at once.
TEST_F(BookPlayTest, IsInterrupted) {
  const std::string catalog = book(0x0112, std::string(220500, 'x'));
  const auto start = std::chrono::steady_clock::now();
  const Outcome outcome = Command({"book", "sound", catalog, "1:22", "--play"})
                              .env("ZAVEL_ROOT", folder_.file("root"))
                              .env("SDL_AUDIODRIVER", "disk")
                              .env("SDL_DISKAUDIOFILE", folder_.file("heard"))
                              .signalAt(folder_.file("heard"), SIGINT)
                              .run();
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(outcome.err, "");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(15));
}

// Chunks that are none.
TEST_F(BookPlayTest, TellsOfABrokenSound) {
  const Outcome outcome = play(book(0, "no chunks at all"));
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(folder_.read("heard"), "(none)");
}

TEST_F(BookPlayTest, PlaysNothingUnasked) {
  const Outcome outcome = play(book(0x0100, kSamples), {});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(folder_.read("heard"), "(none)");
}

}  // namespace
}  // namespace zavel::test
