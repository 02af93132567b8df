#include "frontends/terminal/key_decoder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

namespace fiscalon::terminal {
namespace {

std::string Described(const Input& input) {
  if (const auto* stroke = std::get_if<KeyStroke>(&input))
    return std::to_string(stroke->keyCode) + " " + std::to_string(stroke->shift) + " " +
           std::to_string(stroke->character);
  if (const auto* mouse = std::get_if<MouseInput>(&input))
    return "mouse " + std::to_string(static_cast<int>(mouse->what)) + " " + std::to_string(mouse->at.x) + "," +
           std::to_string(mouse->at.y);
  return "paste " + std::get<PasteInput>(input).text;
}

std::vector<std::string> Rest(KeyDecoder& decoder) {
  std::vector<std::string> inputs;
  while (const auto input = decoder.Next()) inputs.push_back(Described(*input));
  return inputs;
}

std::vector<std::string> Decoded(std::string_view bytes, Charset charset = Charset::Utf8) {
  KeyDecoder decoder(charset);
  decoder.Feed(bytes);
  auto inputs = Rest(decoder);
  decoder.NothingFollows();
  for (std::string& input : Rest(decoder)) inputs.push_back(std::move(input));
  EXPECT_EQ(decoder.Waiting(), KeyDecoder::Rest::None);
  return inputs;
}

std::string Named(std::string_view name) {
  return Described(*StrokeNamed(name));
}

struct KeyRow {
  const char* name;
  std::string bytes;
  KeyStroke stroke;
};

TEST(KeyDecoder, KnowsTheKeysOfTerminals) {
  const int kShift = shift_state::kShift, kControl = shift_state::kControl, kAlt = shift_state::kAlt;
  const KeyRow rows[] = {
      {"Tab", "\t", *StrokeNamed("Tab")},
      {"Shift+Tab", "\x1B[Z", *StrokeNamed("Shift+Tab")},
      {"Enter", "\r", *StrokeNamed("Enter")},
      {"Ctrl+Enter as a line feed", "\n", *StrokeNamed("Ctrl+Enter")},
      {"Ctrl+Enter of the one protocol", "\x1B[27;5;13~", *StrokeNamed("Ctrl+Enter")},
      {"Ctrl+Enter of the other protocol", "\x1B[13;5u", *StrokeNamed("Ctrl+Enter")},
      {"Shift+Enter", "\x1B[13;2u", *StrokeNamed("Shift+Enter")},
      {"Backspace", "\x7F", *StrokeNamed("Backspace")},
      {"Backspace of old terminals", "\b", *StrokeNamed("Backspace")},
      {"Escape", "\x1B", *StrokeNamed("Escape")},
      {"Escape by its number", "\x1B[27u", *StrokeNamed("Escape")},
      {"Alt+Z", "\x1Bz", *StrokeNamed("Alt+Z")},
      {"Alt+Shift+Z", "\x1BZ", {.keyCode = 'Z', .shift = kAlt | kShift}},
      {"Alt+O", "\x1Bo", *StrokeNamed("Alt+O")},
      {"Left", "\x1B[D", *StrokeNamed("Left")},
      {"Right of keypads", "\x1BOC", *StrokeNamed("Right")},
      {"Ctrl+Left", "\x1B[1;5D", {.keyCode = key::kLeft, .shift = kControl}},
      {"Shift+End", "\x1B[1;2F", {.keyCode = key::kEnd, .shift = kShift}},
      {"Home by its number", "\x1B[1~", *StrokeNamed("Home")},
      {"Delete", "\x1B[3~", *StrokeNamed("Delete")},
      {"Ctrl+Insert", "\x1B[2;5~", {.keyCode = key::kInsert, .shift = kControl}},
      {"Alt+Down", "\x1B[1;3B", {.keyCode = key::kDown, .shift = kAlt}},
      {"Page Down", "\x1B[6~", {.keyCode = key::kPageDown}},
      {"F1", "\x1BOP", {.keyCode = key::kF1}},
      {"F1 of the system's own console", "\x1B[[A", {.keyCode = key::kF1}},
      {"Shift+F1", "\x1B[1;2P", {.keyCode = key::kF1, .shift = kShift}},
      {"F4", "\x1BOS", {.keyCode = key::kF1 + 3}},
      {"F12", "\x1B[24~", {.keyCode = key::kF1 + 11}},
      {"Ctrl+A", "\x01", {.keyCode = 'A', .shift = kControl, .character = 1}},
      {"Ctrl+A by its number", "\x1B[97;5u", {.keyCode = 'A', .shift = kControl, .character = 1}},
      {"undo", "\x1F", {.keyCode = 'Z', .shift = kControl}},
      {"a letter", "a", {.keyCode = 'A', .character = 'a'}},
      {"a full stop", ".", {.keyCode = key::kPeriod, .character = '.'}},
      {"an accent", "\xC3\xA9", {.keyCode = key::kOther, .character = 0xE9}},
      {"the euro", "\xE2\x82\xAC", {.keyCode = key::kOther, .character = 0x80}},
      {"what the code page lacks", "\xE2\x98\x83", StrokeOf('?')},
  };
  for (const KeyRow& row : rows)
    EXPECT_THAT(Decoded(row.bytes), testing::ElementsAre(Described(row.stroke))) << row.name;
}

TEST(KeyDecoder, TakesBytesHoweverTheyAreCut) {
  const std::string bytes = "a\x1B[1;5D\xC3\xA9\x1B[200~x\ry\x1B[201~\x1B[<0;5;7M\x1Bz";
  const std::vector<std::string> whole = Decoded(bytes);
  EXPECT_THAT(whole, testing::SizeIs(6));
  for (size_t cut = 0; cut <= bytes.size(); ++cut) {
    KeyDecoder decoder;
    std::vector<std::string> inputs;
    for (const std::string& part : {bytes.substr(0, cut), bytes.substr(cut)}) {
      decoder.Feed(part);
      for (std::string& input : Rest(decoder)) inputs.push_back(std::move(input));
    }
    EXPECT_EQ(inputs, whole) << cut;
  }
}

TEST(KeyDecoder, WaitsForTheRestOfASequence) {
  KeyDecoder decoder;
  decoder.Feed("\x1B");
  EXPECT_THAT(Rest(decoder), testing::IsEmpty());
  EXPECT_EQ(decoder.Waiting(), KeyDecoder::Rest::Key);
  decoder.Feed("[");
  EXPECT_THAT(Rest(decoder), testing::IsEmpty());
  decoder.Feed("A");
  EXPECT_THAT(Rest(decoder), testing::ElementsAre(Named("Up")));
  EXPECT_EQ(decoder.Waiting(), KeyDecoder::Rest::None);
}

TEST(KeyDecoder, TakesEscapeForItselfWhereNothingFollows) {
  KeyDecoder decoder;
  decoder.Feed("\x1B");
  EXPECT_THAT(Rest(decoder), testing::IsEmpty());
  decoder.NothingFollows();
  EXPECT_THAT(Rest(decoder), testing::ElementsAre(Named("Escape")));
  // What comes later is told apart again.
  decoder.Feed("\x1B");
  EXPECT_THAT(Rest(decoder), testing::IsEmpty());
}

TEST(KeyDecoder, TellsEscapeBeforeAnotherKeyFromAlt) {
  EXPECT_THAT(Decoded("\x1B\x1B[A"), testing::ElementsAre(Named("Escape"), Named("Up")));
  EXPECT_THAT(Decoded("\x1B\xC3\xA9"), testing::ElementsAre(Named("Escape"), Described(StrokeOf('\xE9'))));
}

TEST(KeyDecoder, PassesOverWhatMeansNothing) {
  // The answer of a terminal to a question, a focus that came, bytes that are no UTF-8, and a key without a name.
  EXPECT_THAT(Decoded("\x1B[?62;22c\x1B[Ia\x80\xFF\xC3z\x1B[99~b"),
              testing::ElementsAre(Described(StrokeOf('a')), Described(StrokeOf('z')), Described(StrokeOf('b'))));
  EXPECT_THAT(Decoded("\x1B[12\x1B[A"), testing::ElementsAre(Named("Up")));
  EXPECT_THAT(Decoded("\x1B[" + std::string(1000, '1') + "m"), testing::Not(testing::IsEmpty()));
  EXPECT_THAT(Decoded(std::string(1, '\0')), testing::IsEmpty());
}

TEST(KeyDecoder, NeverStallsOnAnyBytes) {
  for (unsigned seed = 0; seed < 2000; ++seed) {
    unsigned state = seed * 2654435761u + 1;
    std::string bytes;
    for (int i = 0; i < 40; ++i) {
      state = state * 1664525u + 1013904223u;
      const unsigned draw = state >> 24;
      bytes += draw < 90 ? '\x1B' : draw < 130 ? '[' : draw < 160 ? ';' : static_cast<char>(draw);
    }
    KeyDecoder decoder;
    decoder.Feed(bytes);
    Rest(decoder);
    decoder.NothingFollows();
    Rest(decoder);
    EXPECT_NE(decoder.Waiting(), KeyDecoder::Rest::Key) << seed;
  }
}

TEST(KeyDecoder, TakesAPasteAsAWhole) {
  EXPECT_THAT(Decoded("\x1B[200~C\xC3\xB4t\xC3\xA9\r\t\x1B[A\x1B[201~b"),
              testing::ElementsAre("paste C\xF4t\xE9\r\t\x1B[A", Described(StrokeOf('b'))));
  EXPECT_THAT(Decoded("\x1B[200~\x1B[201~"), testing::ElementsAre("paste "));
}

TEST(KeyDecoder, EndsAPasteWhoseEndNeverComes) {
  KeyDecoder decoder;
  decoder.Feed("\x1B[200~abc");
  EXPECT_THAT(Rest(decoder), testing::IsEmpty());
  EXPECT_EQ(decoder.Waiting(), KeyDecoder::Rest::Paste);
  decoder.NothingFollows();
  EXPECT_THAT(Rest(decoder), testing::ElementsAre("paste abc"));
  decoder.Feed("d");
  EXPECT_THAT(Rest(decoder), testing::ElementsAre(Described(StrokeOf('d'))));
}

TEST(KeyDecoder, TakesMegabytesInNoTime) {
  const auto begin = std::chrono::steady_clock::now();
  KeyDecoder decoder;
  const std::string block(4096, 'x');
  decoder.Feed("\x1B[200~");
  for (int i = 0; i < 2048; ++i) {
    decoder.Feed(block);
    EXPECT_THAT(Rest(decoder), testing::IsEmpty());
  }
  decoder.Feed("\x1B[201~");
  const auto paste = decoder.Next();
  ASSERT_TRUE(paste);
  EXPECT_EQ(std::get<PasteInput>(*paste).text.size(), size_t{1} << 20);
  // The same without the marks of a paste.
  decoder.Feed(std::string(1 << 20, 'x'));
  EXPECT_THAT(Rest(decoder), testing::SizeIs(1 << 20));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
}

TEST(KeyDecoder, KnowsTheMouse) {
  EXPECT_THAT(Decoded("\x1B[<0;5;7M\x1B[<32;6;7M\x1B[<0;6;7m"),
              testing::ElementsAre("mouse 0 4,6", "mouse 1 5,6", "mouse 2 5,6"));
  EXPECT_THAT(Decoded("\x1B[<64;300;2M\x1B[<65;300;2M"), testing::ElementsAre("mouse 3 299,1", "mouse 4 299,1"));
  EXPECT_THAT(Decoded("\x1B[<2;5;7M"), testing::IsEmpty());
  EXPECT_THAT(Decoded("\x1B[M %'"), testing::ElementsAre("mouse 0 4,6"));
}

TEST(KeyDecoder, ReadsTheCharactersOfOtherTerminals) {
  EXPECT_THAT(Decoded("\xE9", Charset::Latin1), testing::ElementsAre(Described(StrokeOf('\xE9'))));
  EXPECT_THAT(Decoded("\x1B[200~\xE9\x1B[201~", Charset::Latin1), testing::ElementsAre("paste \xE9"));
}

}  // namespace
}  // namespace fiscalon::terminal
