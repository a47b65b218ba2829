#include "korvel/values/language.h"
#include "source/document_error.h"
#include "texts/messages.h"

#include <gtest/gtest.h>

namespace korvel::inspector {
namespace {

// A process speaks one language: this test is the only one of its program that chooses one.
TEST(Messages, AreInTheLanguageOfTheProcess) {
    ASSERT_TRUE(SetLanguageForThisRun("German"));
    EXPECT_EQ(Say({"the element %1 is closed by %2", {"'a'", "'%1'"}}),
              "das Element 'a' wird von '%1' geschlossen");
    EXPECT_EQ(Say({"a sentence of tomorrow on %1", {"'a'"}}), "a sentence of tomorrow on 'a'");
    const XmlError error("<a>\xFF", 3, {"the bytes are not in the encoding %1", {"'UTF-8'"}},
                         XmlError::Cause::Encoding);
    EXPECT_EQ(
        DocumentError("a.xml", error).Utf8Text(),
        "a.xml: Zeile 1, Stelle 4: die Bytes gehören nicht zur Kodierung 'UTF-8'; --encoding NAME liest die "
        "Datei in einer anderen Kodierung");
}

} // namespace
} // namespace korvel::inspector
