#include "calling/NumberReader.h"

#include <array>

#include <gtest/gtest.h>

namespace {

const std::array<std::string, 3> kPrefixes{"#31#", "*67", "141"};

struct Reading {
  const char* text;
  const char* number;  // empty for a text that is no number
  const char* why;
};

std::string shown(std::string_view text) {
  const auto read = readNumber(text, kPrefixes);
  if (!read) {
    return "";
  }
  return read->number + (read->context.empty() ? "" : " in " + read->context) +
         (read->hasRest ? " and rest" : "");
}

constexpr std::array kReadings{
    Reading{"0171 555 0134", "01715550134", "blanks go"},
    Reading{"0171\t555", "0171555", "tabulators go"},
    Reading{"0171\u00A0555\u202F01\u200734", "01715550134", "no-break blanks go"},
    Reading{"(0171)/555-01.34", "01715550134", "brackets, slashes, hyphens and points go"},
    Reading{"0171\u2010\u2011\u2012\u2013\u2014\u20155", "01715", "dashes of all lengths go"},
    Reading{"0171\u20161", "", "the double bar after the dashes is none"},
    Reading{"0171\u200F1", "01711", "the dash before the dashes is a direction mark"},
    Reading{"\uFF0B49", "+49", "the wide plus is a plus"},
    Reading{"\u0661\u0662\u0663", "123", "Arabic-Indic digits"},
    Reading{"\u06F0\u06F9", "09", "Persian digits, the first and the last"},
    Reading{"\u06FA", "", "behind the last Persian digit"},
    Reading{"\uFF11\uFF19", "19", "wide digits"},
    Reading{"\U0001FBF0\U0001FBF9", "09", "the last digits of Unicode"},
    Reading{"\u200E+49\u200F30\u202A1\u202C2\u202D3\u20664\u20675\u20686\u20697", "+49301234567",
            "direction marks go"},
    Reading{"123\u202E456", "", "the override turns what is read around"},
    Reading{"123\u202B456", "", "the other embedding is not dropped"},
    Reading{"\u00B2\u00B3", "", "superscripts are no decimal digits"},
    Reading{"123\n", "", "a line's end is no blank"},
    Reading{"123\xC0\xB0", "", "an overlong form"},
    Reading{"123\xE2\x82", "", "half a character"},
    Reading{"12\xE0\x80\xB1", "", "a longer overlong form"},
    Reading{"12\xC0\x9D\x9F\x8E", "", "a beginning that none has"},
    Reading{"1\xEF\xBC\x50", "", "a character that does not go on"},
    Reading{"123\xED\xA0\x80", "", "a surrogate"},
    Reading{"", "", "nothing"},
    Reading{" - ", "", "separators alone"},
    Reading{"+", "", "a plus alone"},
    Reading{"#31#+", "", "a plus with nothing behind it"},
    Reading{"++49", "", "two pluses"},
    Reading{"49+30", "", "a plus inside"},
    Reading{"+49+30", "", "a plus in front and one inside"},
    Reading{"#31#+4930", "#31#+4930", "a plus behind a prefix"},
    Reading{"*67+4930", "*67+4930", "a plus behind another prefix"},
    Reading{"*99+4930", "", "a plus behind what is no prefix"},
    Reading{"141+4420", "", "a plus behind digits, even a prefix's"},
    Reading{"1234567890123456789012345678901234567890", "1234567890123456789012345678901234567890",
            "40 digits"},
    Reading{"12345678901234567890123456789012345678901", "", "41 digits"},
    Reading{"+1234567890123456789012345678901234567890",
            "+1234567890123456789012345678901234567890", "40 digits behind a plus"},
    Reading{"call 123", "", "letters in front"},
    Reading{"1-800-FLOWERS", "", "letters in the number"},
    Reading{"1-800-flowers", "", "letters that hold a pause"},
    Reading{"123,456", "123 and rest", "a pause"},
    Reading{"123 p 456 w 7;#*", "123 and rest", "pauses of all kinds"},
    Reading{"123,45x", "", "letters behind a pause"},
    Reading{"123,4-5", "", "a hyphen behind a pause"},
    Reading{",123", "", "a pause with no number"},
    Reading{"123%20", "", "percent signs mean nothing outside addresses"},
    Reading{"1;+CGMI", "", "a command to a modem"},
    Reading{"0171';rm", "", "a command to a shell"},
    Reading{"tel:0171555", "0171555", "an address"},
    Reading{"TEL:0171555", "0171555", "its scheme in any case"},
    Reading{"callto:0171555", "0171555", "the other scheme"},
    Reading{"tel://0171555", "0171555", "with the slashes of other addresses"},
    Reading{"tel:///0171", "0171", "a slash is a separator"},
    Reading{"sip:0171555", "", "another scheme"},
    Reading{"tel:", "", "an address of nothing"},
    Reading{"tel:%2331%230171555", "#31#0171555", "percent signs are decoded"},
    Reading{"tel:%252331%25230171", "", "once"},
    Reading{"tel:0171%2", "", "half a percent sign"},
    Reading{"tel:0171%20555", "0171555", "an encoded blank"},
    Reading{"tel:0171%2f555%2F", "0171555", "an encoded slash, in letters of both cases"},
    Reading{"tel:0171%1w", "", "a percent sign with a letter behind f"},
    Reading{"tel:0171%3g", "", "a percent sign with one digit"},
    Reading{"tel:0171%zz", "", "a percent sign without digits"},
    Reading{"tel:0171%3B5", "", "a decoded semicolon separates nothing"},
    Reading{"tel:0171%00", "", "a zero byte"},
    Reading{"tel:%D9%A1%D9%A2", "12", "digits of another script, encoded"},
    Reading{"tel:0171;ext=5", "0171 and rest", "an extension is not dialled"},
    Reading{"tel:0171;EXT=5", "0171 and rest", "in any case"},
    Reading{"tel:0171;isub=5", "0171 and rest", "a subaddress is not dialled"},
    Reading{"tel:0171;postd=5", "0171 and rest", "what comes after dialling is not dialled"},
    Reading{"tel:0171;foo", "0171", "a parameter that means nothing here"},
    Reading{"tel:0171;zone0=0z.-+", "0171", "of all that a parameter may hold"},
    Reading{"tel:0171;phone-context=+49", "0171 in +49", "a context"},
    Reading{"tel:0171;phone-context=%2B49", "0171 in +49", "a context, encoded"},
    Reading{"tel:0171;Phone-Context=example.com;ext=1", "0171 in example.com and rest", "both"},
    Reading{"tel:0171;phone-context=+49;phone-context=+44", "", "two contexts"},
    Reading{"tel:0171;phone-context", "", "a context that says nothing"},
    Reading{"tel:0171;ext=", "", "a value that is none"},
    Reading{"tel:0171;", "", "a parameter that is none"},
    Reading{"tel:0171;a b=1", "", "a parameter with a blank"},
    Reading{"tel:0171;ext=5%0A", "", "a parameter with a line's end"},
    Reading{"tel:0171?call", "", "a question is no parameter"},
    Reading{"tel:123,456", "", "a pause in an address"},
};

TEST(NumberReader, ReadsWhatIsANumberAndNothingElse) {
  for (const auto& row : kReadings) {
    EXPECT_EQ(shown(row.text), row.number) << row.why << ": " << row.text;
  }
}

TEST(NumberReader, LongTextsAreNone) {
  EXPECT_EQ(shown("123" + std::string(509, ' ')), "123");
  EXPECT_EQ(shown("123" + std::string(510, ' ')), "");
}

}  // namespace
