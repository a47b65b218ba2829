#include "desktop/desktop_run.h"
#include "editing/value_typing.h"
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
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

using namespace korvel;
using namespace korvel::inspector;

namespace {

enum ExitStatus { Done = 0, Failed = 1, NotUnderstood = 2 };

// What the command line asks for and must not be done; in UTF-8.
class RefusedAct : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

void Complain(const std::string& utf8) {
    std::cerr << "inspector: " << utf8 << '\n';
}

int List(LandXmlDocument& document) {
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

// Writes one "PATH=TEXT". A name may hold '=': of the paths that could be meant, the shortest that leads to a
// member.
void Set(GridPane& pane, IMemberDispatch& root, const std::string& assignment) {
    std::size_t end = assignment.find('=');
    for (std::size_t at = end; at != std::string::npos; at = assignment.find('=', at + 1))
        if (HasMember(root, platform::FromUtf8(assignment.substr(0, at)).text)) {
            end = at;
            break;
        }
    const std::string path = assignment.substr(0, end);
    if (!pane.Expand(platform::FromUtf8(path).text))
        throw UsageError({"--set: there is no %1", {InQuotes(path)}});
    const platform::ConvertedText text = platform::FromUtf8(assignment.substr(end + 1));
    try {
        if (!text.exact)
            throw Error(platform::FromUtf8(Say({"the text is not UTF-8"})).text);
        TypeValue(pane, text.text);
    } catch (const Error& error) {
        throw RefusedAct("--set " + path + ": " + platform::ToUtf8(error.what()));
    }
}

void SetAll(GridPane& pane, OpenDocument& document, const std::vector<std::string>& assignments) {
    if (assignments.empty())
        return;
    const std::unique_ptr<GridPane, void (*)(GridPane*)> clear(&pane,
                                                               [](GridPane* shown) { shown->Clear(); });
    pane.Show(document);
    for (const std::string& assignment : assignments)
        Set(pane, document.Document().Root(), assignment);
}

// Whether the document is saved over the file that it was read from.
bool IsOwnFile(const Options& options) {
    std::error_code none;
    return options.saveAs.empty() || std::filesystem::equivalent(options.saveAs, options.file, none);
}

// What `--set`, `--save` and `--list` do with a document, in this order. Whatever is refused leaves its file
// alone.
int EditAndList(const Options& options, const TakenFormats& formats) {
    GridPane pane;
    OpenDocument open(options.file, {options.stations, nullptr, options.encoding, ReadingOptions::All},
                      pane.Observer());
    LandXmlDocument& document = open.Document();
    if (formats.hasUnitOfFile)
        SetAngleUnit(document.OwnAngleUnit());
    for (const std::string& path : options.expand)
        if (!HasMember(document.Root(), platform::FromUtf8(path).text))
            throw UsageError({"--expand: there is no %1", {InQuotes(path)}});
    for (const std::string& notice : document.Notices())
        Complain(options.file + ": " + platform::ToUtf8(notice));
    SetAll(pane, open, options.set);
    if (options.save && IsOwnFile(options) && open.File().GetState() == DocumentFile::State::Changed)
        throw RefusedAct(Say({"%1 has been changed by another program meanwhile", {options.file}}));
    if (options.save && options.saveAs.empty())
        open.Save();
    else if (options.save)
        open.SaveAs(options.saveAs);
    return options.list ? List(document) : Done;
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
    const bool onDesktop = !options.list && !options.save;
    return onDesktop ? RunOnDesktop(options, formats) : EditAndList(options, formats);
}

} // namespace

int main(int count, char** arguments) {
    try {
        return Run(ReadArguments({arguments + 1, arguments + count}));
    } catch (const UsageError& error) {
        Complain(Say({"%1; see --help", {Say(error.Reason())}}));
        return NotUnderstood;
    } catch (const RefusedAct& error) {
        Complain(error.what());
        return NotUnderstood;
    } catch (const DocumentError& error) {
        Complain(error.Utf8Text());
        return NotUnderstood;
    } catch (const std::exception& error) {
        Complain(platform::ToUtf8(error.what()));
        return Failed;
    }
}
