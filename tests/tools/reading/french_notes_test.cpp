#include <gmock/gmock.h>

#include <string>

#include "core/host_setup.h"
#include "core/launch.h"
#include "core/records/record_line.h"
#include "tests/support/ruled_record.h"
#include "tests/tools/fiscalon/command_line.h"
#include "tools/reading/field_remark.h"
#include "tools/reading/record_taker.h"

namespace fiscalon::french_notes_test {
namespace {

using testing::ElementsAre;

const Language& French() {
  static const Language french = *NamedLanguage("fr");
  return french;
}

/// With an ordinary blank for each that ends no line.
std::string Plain(std::string text) {
  constexpr std::string_view kNoBreakBlank = "\u00A0";
  for (size_t at = text.find(kNoBreakBlank); at != std::string::npos; at = text.find(kNoBreakBlank))
    text.replace(at, kNoBreakBlank.size(), " ");
  return text;
}

/// What is wrong with a record, then what is odd about it.
std::vector<std::string> Told(const ShownRecord& record) {
  std::vector<std::string> told;
  for (const Note& problem : record.problems) told.push_back(Plain(problem.In(French())));
  for (const Note& oddity : record.oddities) told.push_back(Plain(oddity.In(French())));
  return told;
}

/// The same of the last line of a file.
std::vector<std::string> ToldOf(const std::string& bytes, std::string_view screen = {}) {
  return Told(TakeApart(std::string_view(bytes), FindLaunchRow(screen)).back());
}

const std::string& Government() {
  static const std::string record = Ruled("PC40001T");
  return record;
}

/// Of a record behind the one that a payment begins with.
std::vector<std::string> ToldBehindGovernment(const std::string& pieces, std::string_view screen = {}) {
  return ToldOf(Line(Government()) + Line(Ruled(pieces)), screen);
}

TEST(FrenchNotes, TellWhatIsWrongAroundARecord) {
  EXPECT_THAT(ToldOf("\xEF\xBB\xBF" + Line(Government())),
              ElementsAre("une marque d'ordre des octets; les fichiers d'enregistrements n'en ont pas"));
  EXPECT_THAT(
      ToldOf('"' + Government() + "\r\n"),
      ElementsAre("le guillemet du début n'a pas de pendant à la fin; caractères qui restent sur la ligne : 160"));
  EXPECT_THAT(ToldOf(Government() + "\"\r\n"), ElementsAre("le guillemet de la fin n'a pas de pendant au début"));
  EXPECT_THAT(ToldOf('"' + Government() + "\"\r"),
              ElementsAre("la moitié d'une fin de ligne, CR sans LF; le fichier a été tronqué là"));
  EXPECT_THAT(ToldOf('"' + Government() + '"'),
              ElementsAre("aucun CR LF à la suite, que les écrans écrivent pourtant; d'autres caractères ont pu s'y "
                          "trouver"));
}

TEST(FrenchNotes, TellWhatALineIsThatIsNoRecord) {
  EXPECT_THAT(ToldOf("\r\n"), ElementsAre("une ligne vide"));
  EXPECT_THAT(ToldOf("PC401\r\n"), ElementsAre("aucun enregistrement : 5 caractères, et l'en-tête seul en prend 8"));
  EXPECT_THAT(ToldOf("Liste des paiements de juin\r\n"),
              ElementsAre("aucun enregistrement : la ligne commence par « Liste des paiements  », et non par « PC4 »"));
}

TEST(FrenchNotes, TellOfALineThatIsNotHeldWhole) {
  const std::string held(kLongestLine, 'x');
  std::string_view bytes = held;
  ShownRecord record;
  RecordTaker(nullptr).Take(TakeRecordLine(bytes), 904, record);
  EXPECT_EQ(Told(record).front(), "une ligne de 5000 caractères; seuls les 4096 premiers sont examinés");
}

TEST(FrenchNotes, MeasureRecords) {
  EXPECT_THAT(ToldOf(Line(Government().substr(0, 159))), ElementsAre("159 caractères au lieu de 160 : il en manque 1"));
  EXPECT_THAT(ToldOf(Line(Government() + "  ")), ElementsAre("162 caractères au lieu de 160 : 2 de trop"));
  EXPECT_THAT(ToldOf(Line(Ruled("PC40001T                                Hélène").append("  "))),
              ElementsAre("162 caractères au lieu de 160 : 2 de trop; il s'y trouve de l'UTF-8, et les enregistrements "
                          "sont en Windows-1252"));
}

TEST(FrenchNotes, QuoteWhatStandsInTheHead) {
  EXPECT_THAT(ToldOf(Line(Ruled("P4 0001T"))), ElementsAre("« P4· » se trouve là où « PC4 » devrait être"));
  EXPECT_THAT(ToldOf(Line(Ruled("PC40001X"))),
              ElementsAre("genre d'enregistrement inconnu : « X »; les genres sont T, F, G, P, R et I"));
}

TEST(FrenchNotes, NameControlCharacters) {
  std::string record = Government();
  record.replace(44, 6, std::string("\0\t\r\x1B\x1B\x1B", 6));
  EXPECT_THAT(ToldOf(Line(record)), ElementsAre("un octet NUL", "une tabulation", "CR, la moitié d'une fin de ligne",
                                                "caractère de commande 0x1B", "caractère de commande 0x1B",
                                                "et 1 caractère de commande de plus"));
  record.replace(50, 1, "\x81");
  EXPECT_EQ(ToldOf(Line(record)).back(), "et 2 caractères de commande de plus");
}

TEST(FrenchNotes, TellOfTheOrderOfRecords) {
  EXPECT_THAT(ToldBehindGovernment("PC40001T"),
              ElementsAre("un second enregistrement T dans le paiement; il n'y en a qu'un, et en tête"));
  EXPECT_THAT(ToldOf(Line(Ruled("PC40001PNAME: ")) + Line(Government())),
              ElementsAre("un enregistrement T derrière d'autres; il vient en tête de son paiement"));
  EXPECT_THAT(ToldOf(Line(Ruled("PC40001F01000000000000000100"))),
              ElementsAre("aucun enregistrement T avant lui; un paiement qui a des enregistrements F ou G commence par "
                          "un T"));
  EXPECT_THAT(ToldOf(Line(Government()) + Line(Ruled("PC40001G000000000000000100Repairs")) +
                     Line(Ruled("PC40001F01000000000000000100"))),
              ElementsAre("un enregistrement F derrière un enregistrement G"));
  EXPECT_THAT(ToldBehindGovernment("PC40001F0200000000000000010001000000000000000100"),
              ElementsAre("numéro de champ 01 derrière 02; les numéros de champ d'un paiement vont en montant"));
  EXPECT_THAT(ToldBehindGovernment("PC40001F01000000000000000100  2026"),
              ElementsAre("une valeur sans numéro de champ"));
}

TEST(FrenchNotes, TellWhatKeepsAFieldFromBeingRead) {
  EXPECT_THAT(ToldOf(Line(Ruled("PC40001T                        X"))),
              ElementsAre("Filler1 : des colonnes qui sont toujours en blanc contiennent « X······· »"));
  EXPECT_EQ(ToldOf(Line(Ruled("PC40001T").replace(159, 1, "z"))).front().substr(0, 51),
            "des colonnes qui sont toujours en blanc contiennent");
  EXPECT_THAT(ToldOf(Line(Ruled("PC40001T20260229"))),
              ElementsAre("PeriodStartDate : « 20260229 » n'est pas une date AAAAMMJJ ou AAAAMM"));
  EXPECT_THAT(ToldOf(Line(Ruled("PC40001R20260631 000012345INVOICE 1"))),
              ElementsAre("InvoiceDate : « 20260631 » n'est pas une date AAAAMMJJ"));
  EXPECT_THAT(ToldBehindGovernment("PC40001FA1000000000000000100"),
              ElementsAre("FieldNum : « A1 » n'est pas un numéro de champ de deux chiffres"));
  EXPECT_THAT(ToldBehindGovernment("PC40001F01 2026"),
              ElementsAre("FieldValue : la valeur « ·2026············· » commence par des blancs"));
  EXPECT_THAT(ToldBehindGovernment("PC40001G00000000000000012\x01Repairs"),
              testing::Contains("Amount : le montant « 00000000000000012␁ » n'est pas fait de chiffres"));
}

TEST(FrenchNotes, TellWhatKeepsAFieldOfAScreenFromBeingRead) {
  EXPECT_THAT(ToldBehindGovernment("PC40001F99000000000000000100", "15"),
              ElementsAre("FieldValue : l'écran 15 n'a pas de champ 99, et celui-ci contient « 000000000000000100 »"));
  EXPECT_THAT(ToldBehindGovernment("PC40001F02202613            03000000000000012345"
                                   "0412 employees      ",
                                   "03"),
              ElementsAre("FieldValue : « 202613············ » n'est pas une date AAAAMMJJ",
                          "FieldValue : le montant « 000000000000012345 » a des cents, alors que c'est un montant en "
                          "dollars entiers",
                          "FieldValue : le nombre « 12 employees······ » n'est pas fait de chiffres"));
  EXPECT_THAT(ToldBehindGovernment("PC40001F0120X6              ", "04"),
              ElementsAre("FieldValue : « 20X6·············· » n'est pas une année AAAA"));
  EXPECT_THAT(ToldBehindGovernment("PC40001F01202613            ", "27"),
              ElementsAre("FieldValue : « 202613············ » n'est pas un mois AAAAMM"));
}

TEST(FrenchNotes, TellOfRecordsThatAreLongerThanOthers) {
  EXPECT_THAT(ToldBehindGovernment("PC40001F0500000000000000000006000000000000000000070000000000000000000"
                                   "8-000000000000005000" +
                                   std::string(72, ' ')),
              ElementsAre("FieldValue : un signe moins et 18 chiffres prennent 1 colonne de plus que le champ n'en a; "
                          "ce qui suit est décalé d'autant vers la droite"));
  EXPECT_THAT(ToldOf(Line("PC40001R20260615-12345678901A-17" + std::string(162 - 8 - 8 - 12 - 4, ' '))),
              ElementsAre("InvoiceAmount : un signe moins et 11 chiffres prennent 2 colonnes de plus que le champ n'en "
                          "a; ce qui suit est décalé d'autant vers la droite"));
  const auto joined = [](const std::string& slots) {
    return ToldOf(Line(Government()) +
                  Line(("PC40001F" + slots + "000000000000000100Repairs").append(312, ' ').substr(0, 312)));
  };
  EXPECT_THAT(joined("01A                 "),
              ElementsAre("le corps d'un enregistrement G se trouve derrière 1 emplacement, comme dans la collection "
                          "de l'écran 07"));
  EXPECT_THAT(joined("01A                 02B                 "),
              ElementsAre("le corps d'un enregistrement G se trouve derrière 2 emplacements, comme dans la collection "
                          "de l'écran 07"));
}

TEST(FrenchNotes, HaveBlanksThatEndNoLine) {
  const std::string bytes = Line(Ruled("PC40001X"));
  const Note note = TakeApart(std::string_view(bytes), nullptr).back().problems.front();
  EXPECT_EQ(note.In(French()),
            "genre d'enregistrement inconnu\u00A0: «\u00A0X\u00A0»; les genres sont T, F, G, P, R et I");
}

TEST(FrenchNotes, SayWhatDigitsAreAsCents) {
  const std::string bytes = Line(Ruled("PC40001F01-00000000000012345"));
  const ShownRecord record = TakeApart(std::string_view(bytes), nullptr).front();
  UseLanguage("fr");
  const std::string remark = RemarkOn(record, record.fields[1], NamedLocale("en-CA").value());
  UseLanguage("en");
  EXPECT_EQ(Plain(remark), "-12345, pris pour des cents : -$123.45");
}

}  // namespace
}  // namespace fiscalon::french_notes_test
