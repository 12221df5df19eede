#include "workbench/dialect/Tokenizer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "workbench/dialect/DialectError.h"

namespace cordboard::workbench {
namespace {

using std::string;

// The tokens with one blank between them; names in brackets, texts in quotes, grammar words in capitals with a colon.
string Tokens(const string& statement) {
  string all;
  for (Tokenizer tokens(statement); tokens.current().symbol != Symbol::End; tokens.Advance()) {
    const string text(tokens.current().text);
    if (!all.empty()) all += ' ';
    switch (tokens.current().symbol) {
      case Symbol::Name: all += '[' + text + ']'; break;
      case Symbol::Text: all += '\'' + text + '\''; break;
      case Symbol::Number: all += '#' + text; break;
      default: all += text;
    }
  }
  return all;
}

string Refusal(const string& statement) {
  try {
    Tokens(statement);
  } catch (const DialectError& error) {
    return error.what();
  }
  return "taken";
}

TEST(Tokenizer, CutsAStatementIntoItsTokens) {
  EXPECT_EQ(Tokens("SELECT NUMSE, NANSI.USED From NANSI \r\n WHERE (CmdId=7)"),
            "SELECT [NUMSE] , [NANSI] . [USED] From [NANSI] WHERE ( [CmdId] = #7 )");
  EXPECT_EQ(Tokens("a<>b<=c>=d<e>f=*"), "[a] <> [b] <= [c] >= [d] < [e] > [f] = *");
}

TEST(Tokenizer, ReadsNothingFromAnEmptyStatement) {
  EXPECT_EQ(Tokens(""), "");
  EXPECT_EQ(Tokens(" \t\r\n"), "");
  Tokenizer tokens("a");
  tokens.Advance();
  tokens.Advance();
  EXPECT_EQ(tokens.current().symbol, Symbol::End);
}

TEST(Tokenizer, ShowsTheTokenBehindTheCurrentOne) {
  Tokenizer tokens("COUNT (*)");
  EXPECT_EQ(tokens.current().symbol, Symbol::Name);
  EXPECT_EQ(tokens.next().symbol, Symbol::Open);
  EXPECT_EQ(tokens.next().place, 6u);
}

TEST(Tokenizer, KnowsTheWordsOfTheGrammarInAnyCapitals) {
  const std::vector<std::pair<const char*, Symbol>> words = {{"AND", Symbol::And},
                                                             {"as", Symbol::As},
                                                             {"Asc", Symbol::Asc},
                                                             {"BETWEEN", Symbol::Between},
                                                             {"by", Symbol::By},
                                                             {"DELETE", Symbol::Delete},
                                                             {"desc", Symbol::Desc},
                                                             {"Distinct", Symbol::Distinct},
                                                             {"exists", Symbol::Exists},
                                                             {"False", Symbol::False},
                                                             {"from", Symbol::From},
                                                             {"GROUP", Symbol::Group},
                                                             {"having", Symbol::Having},
                                                             {"In", Symbol::In},
                                                             {"INNER", Symbol::Inner},
                                                             {"insert", Symbol::Insert},
                                                             {"into", Symbol::Into},
                                                             {"is", Symbol::Is},
                                                             {"join", Symbol::Join},
                                                             {"LEFT", Symbol::Left},
                                                             {"Like", Symbol::Like},
                                                             {"Not", Symbol::Not},
                                                             {"Null", Symbol::Null},
                                                             {"on", Symbol::On},
                                                             {"OR", Symbol::Or},
                                                             {"order", Symbol::Order},
                                                             {"outer", Symbol::Outer},
                                                             {"right", Symbol::Right},
                                                             {"sElEcT", Symbol::Select},
                                                             {"set", Symbol::Set},
                                                             {"TRUE", Symbol::True},
                                                             {"update", Symbol::Update},
                                                             {"values", Symbol::Values},
                                                             {"where", Symbol::Where},
                                                             {"Yes", Symbol::Yes},
                                                             {"End", Symbol::Name},
                                                             {"KEY", Symbol::Name},
                                                             {"UNION", Symbol::Name},
                                                             {"SELECTED", Symbol::Name},
                                                             {"DISTINCTLY", Symbol::Name},
                                                             {"USEDEXTOPEGRP", Symbol::Name}};
  for (const auto& [word, symbol] : words) EXPECT_EQ(Tokenizer(word).current().symbol, symbol) << word;
}

TEST(Tokenizer, TakesAnythingBetweenSquareBracketsForAName) {
  EXPECT_EQ(Tokens("[SELECT] [two words][it's]"), "[SELECT] [two words] [it's]");
  EXPECT_EQ(Tokens("LINE_2 _a D1"), "[LINE_2] [_a] [D1]");
}

TEST(Tokenizer, KeepsATextWithItsQuotesDoubled) {
  EXPECT_EQ(Tokens("'' 'a' 'it''s' '''' 'x;--[/*\"\r\n'"), "'' 'a' 'it''s' '''' 'x;--[/*\"\r\n'");
  EXPECT_EQ(Tokens("'M\xC3\xBCller'"), "'M\xC3\xBCller'");
}

TEST(Tokenizer, ReadsNumbersWithSignPointAndExponent) {
  EXPECT_EQ(Tokens("0 007 -5 1.5 1E+20 2e-3 3e4"), "#0 #007 #-5 #1.5 #1E+20 #2e-3 #3e4");
  EXPECT_EQ(Tokens("t.c"), "[t] . [c]");
  EXPECT_EQ(Tokens("1."), "#1 .");
}

TEST(Tokenizer, RefusesWhatHasNoMeaningAndTellsThePlace) {
  EXPECT_EQ(Refusal("a = 'b"), "the quote of this text is not closed, at character 5: 'b");
  EXPECT_EQ(Refusal("'b''"), "the quote of this text is not closed, at character 1: 'b''");
  EXPECT_EQ(Refusal("a [b"), "the bracket of this name is not closed, at character 3: [b");
  EXPECT_EQ(Refusal("[]"), "a name stands between square brackets, at character 1: []");
  EXPECT_EQ(Refusal("\"a\""),
            "a text stands in single quotes and a name in square brackets, not in double quotes, "
            "at character 1: \"a\"");
  EXPECT_EQ(Refusal("a; b"), "a call takes one statement and no semicolon, at character 2: ; b");
  EXPECT_EQ(Refusal("a --b"), "a statement holds no comment, at character 3: --b");
  EXPECT_EQ(Refusal("a /*b*/"), "a statement holds no comment, at character 3: /*b*/");
  EXPECT_EQ(Refusal(string("a\0b", 3)), "a statement holds no zero byte, at character 2:  b");
  EXPECT_EQ(Refusal(string("'a\0b'", 5)), "a statement holds no zero byte, at character 3:  b'");
  EXPECT_EQ(Refusal("12A"), "a number runs into a word, at character 1: 12A");
  EXPECT_EQ(Refusal("1e"), "a number runs into a word, at character 1: 1e");
  for (const char* stray : {"+", "-", "/", "?", ":a", "@a", "$a", "#",   "&",    "|",        "!", "!=",
                            "~", "%", "^", "]", "{",  "}",  "\\", "`a`", "\x01", "\xC3\xBC", "\f"}) {
    EXPECT_EQ(Refusal(stray).substr(0, 46), "this character has no meaning in a statement, ") << stray;
  }
}

TEST(Tokenizer, ShowsALongOrAStrangePlaceOnOneLineOfAscii) {
  EXPECT_EQ(Refusal("\xC3\xBC\r\n" + string(60, 'a')),
            "this character has no meaning in a statement, at character 1: ??  " + string(36, 'a') + "...");
}

}  // namespace
}  // namespace cordboard::workbench
