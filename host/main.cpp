#include "desktop/desktop_run.h"
#include "korvel/dialogs/file_container.h"
#include "korvel/output/angles.h"
#include "korvel/platform/code_page.h"
#include "landxml/landxml_document.h"
#include "program/list_writer.h"
#include "program/member_path.h"
#include "program/options.h"
#include "program/run_settings.h"
#include "source/document_error.h"
#include "texts/help_text.h"
#include "texts/messages.h"

#include <exception>
#include <iostream>
#include <string>
#include <vector>

using namespace korvel;
using namespace korvel::inspector;

namespace {

enum ExitStatus { Done = 0, Failed = 1, NotUnderstood = 2 };

void Complain(const std::string& utf8) {
    std::cerr << "inspector: " << utf8 << '\n';
}

int List(const Options& options, const TakenFormats& formats) {
    LandXmlDocument document(options.file, {options.stations, GetFileContainer().GetFileValue(0),
                                            options.encoding, ReadingOptions::All});
    if (formats.hasUnitOfFile)
        SetAngleUnit(document.OwnAngleUnit());
    for (const std::string& path : options.expand)
        if (!HasMember(document.Root(), platform::FromUtf8(path).text))
            throw UsageError({"--expand: there is no %1", {"'" + path + "'"}});
    for (const std::string& notice : document.Notices())
        Complain(options.file + ": " + platform::ToUtf8(notice));
    std::ios::sync_with_stdio(false);
    WriteList(document.Root(), std::cout, [&](IMemberDispatch& written) {
        document.Forget(static_cast<ElementObject&>(written).Element());
    });
    std::cout.flush();
    if (!std::cout) {
        Complain(Say({"standard output cannot be written"}));
        return Failed;
    }
    return Done;
}

Options ReadArguments(const std::vector<std::string>& arguments) {
    try {
        return ReadOptions(arguments);
    } catch (const UsageError&) {
        UseLanguage(LanguageIn(arguments)); // in which the reason is said
        throw;
    }
}

int Run(const Options& options) {
    if (options.help) {
        UseLanguage(options.language);
        std::cout << HelpText();
        return Done;
    }
    if (options.version) {
        std::cout << "inspector " KORVEL_VERSION "\n";
        return Done;
    }
    const TakenFormats formats = ApplySettings(options);
    if (!formats.notice.empty())
        Complain(formats.notice);
    platform::SetStoreProblemListener(
        [](const platform::StoreProblem& problem) { Complain(SetAsideIfDamaged(problem)); });
    return options.list ? List(options, formats) : RunOnDesktop(options, formats);
}

} // namespace

int main(int count, char** arguments) {
    try {
        return Run(ReadArguments({arguments + 1, arguments + count}));
    } catch (const UsageError& error) {
        Complain(Say({"%1; see --help", {Say(error.Reason())}}));
        return NotUnderstood;
    } catch (const DocumentError& error) {
        Complain(error.Utf8Text());
        return NotUnderstood;
    } catch (const std::exception& error) {
        Complain(platform::ToUtf8(error.what()));
        return Failed;
    }
}
