#include "playback/DebugForm.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

TEST(DebugFormTest, PlainTextIsQuoted) {
  EXPECT_EQ(debugForm(u""), uR"("")"_s);
  EXPECT_EQ(debugForm(u"Missing bundled track Rain Veil"), uR"("Missing bundled track Rain Veil")"_s);
}

TEST(DebugFormTest, QuotesAndBackslashesAreEscaped) {
  EXPECT_EQ(debugForm(uR"(say "hush")"), uR"("say \"hush\"")"_s);
  EXPECT_EQ(debugForm(uR"(C:\new)"), uR"("C:\\new")"_s);
  EXPECT_EQ(debugForm(uR"(\")"), uR"("\\\"")"_s);
}

TEST(DebugFormTest, LineStaysOneLine) {
  EXPECT_EQ(debugForm(u"a\nb\rc\td"), uR"("a\nb\rc\td")"_s);
}

TEST(DebugFormTest, NulIsEscapedAndEndsNothing) {
  EXPECT_EQ(debugForm(QStringView(u"a\0b", 3)), uR"("a\0b")"_s);
}

TEST(DebugFormTest, OtherControlCharactersAreNumbered) {
  EXPECT_EQ(debugForm(u"\x01"), uR"("\u{1}")"_s);
  EXPECT_EQ(debugForm(u"\x1b[31m"), uR"("\u{1B}[31m")"_s);
  EXPECT_EQ(debugForm(u"\x1f \x7e\x7f"), uR"("\u{1F} ~\u{7F}")"_s);
  EXPECT_EQ(debugForm(u"\x80\x85\x9f\xa0"), u"\"\\u{80}\\u{85}\\u{9F}\xa0\""_s);
}

TEST(DebugFormTest, OtherTextStaysAsItIs) {
  EXPECT_EQ(debugForm(u"it's 50 % \u2022 \u96e8 \U0001F3B5"), u"\"it's 50 % \u2022 \u96e8 \U0001F3B5\""_s);
}

}  // namespace
}  // namespace mireval
