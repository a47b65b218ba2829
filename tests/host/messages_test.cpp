#include "korvel/values/language.h"
#include "program/options.h"
#include "program/run_settings.h"
#include "source/document_error.h"
#include "texts/system_reason.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace korvel::inspector {
namespace {

// A process speaks one language: whichever tests of this program choose one choose German.
TEST(Messages, AreInTheLanguageOfTheProcess) {
    SetLanguageForThisRun("German");
    ASSERT_EQ(GetLanguageName(), "German");
    EXPECT_EQ(Say({"the element %1 is closed by %2", {"'a'", "'%1'"}}),
              "das Element 'a' wird von '%1' geschlossen");
    EXPECT_EQ(Say({"a sentence of tomorrow on %1", {"'a'"}}), "a sentence of tomorrow on 'a'");
    const XmlError error("<a>\xFF", 3, {"the bytes are not in the encoding %1", {"'UTF-8'"}},
                         XmlError::Cause::Encoding);
    EXPECT_EQ(
        DocumentError("a.xml", error).Utf8Text(),
        "a.xml: Zeile 1, Stelle 4: die Bytes gehören nicht zur Kodierung 'UTF-8'; --encoding NAME liest die "
        "Datei in einer anderen Kodierung");
    EXPECT_EQ(Say(SystemReason(EIO)), "das Gerät meldet einen Fehler");
    using platform::StoreProblem;
    const std::string store = platform::StorePath(platform::SettingsRoot::User).string();
    EXPECT_EQ(
        SetAsideIfDamaged({platform::SettingsRoot::User, StoreProblem::Kind::WrongValue, "", "iDigits"}),
        "die Einstellung iDigits in " + store + " ist nicht zu verstehen und gilt nicht");
    try {
        ReadOptions({"--digits=16"});
        ADD_FAILURE() << "was accepted";
    } catch (const UsageError& refusal) {
        EXPECT_EQ(Say(refusal.Reason()), "--digits ist eine Zahl von 0 bis 15, nicht '16'");
    }
}

} // namespace
} // namespace korvel::inspector
