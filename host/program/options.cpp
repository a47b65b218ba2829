#include "program/options.h"

#include "korvel/platform/code_page.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <utility>

namespace korvel::inspector {
namespace {

constexpr int LargestSide = 16'384;      // of a picture
constexpr std::uint32_t MostDigits = 15; // a double holds no more

PictureSize ReadSize(const std::string& text) {
    PictureSize size;
    const char* end = text.data() + text.size();
    const auto width = std::from_chars(text.data(), end, size.width);
    const bool hasHeight = width.ec == std::errc() && width.ptr != end && *width.ptr == 'x';
    const auto height = std::from_chars(hasHeight ? width.ptr + 1 : end, end, size.height);
    const auto isSide = [](int side) { return side > 0 && side <= LargestSide; };
    if (!hasHeight || height.ec != std::errc() || height.ptr != end || !isSide(size.width) ||
        !isSide(size.height))
        throw UsageError(
            {"--size takes width and height in pixels, 800x600 for example, not %1", {InQuotes(text)}});
    return size;
}

template <typename Value>
struct Choice {
    std::string_view word;
    Value value;
};

template <typename Value, std::size_t Count>
Value Choose(const char* option, const std::string& text, const Choice<Value> (&choices)[Count]) {
    std::string words;
    for (const Choice<Value>& choice : choices) {
        if (choice.word == text)
            return choice.value;
        words += (words.empty() ? "" : ", ") + std::string(choice.word);
    }
    throw UsageError({"%1 takes one of %2, not %3", {option, words, InQuotes(text)}});
}

void SetList(Options& options, const std::string&) {
    options.list = true;
}
void SetScreenshot(Options& options, const std::string& value) {
    options.screenshot = value;
}
void SetSize(Options& options, const std::string& value) {
    options.size = ReadSize(value);
}
void AddExpand(Options& options, const std::string& value) {
    options.expand.push_back(value);
}
void SetExpandAll(Options& options, const std::string&) {
    options.expandAll = true;
}
void AddSet(Options& options, const std::string& value) {
    if (value.find('=') == std::string::npos || value.front() == '=')
        throw UsageError({"--set takes the path of a member, '=' and a text, not %1", {InQuotes(value)}});
    options.set.push_back(value);
}
void SetSave(Options& options, const std::string& value) {
    if (options.save)
        throw UsageError({"%1 is there twice", {"--save"}});
    options.save = true;
    options.saveAs = value;
}
void SetEncoding(Options& options, const std::string& value) {
    options.encoding = value;
}
void SetLocale(Options& options, const std::string& value) {
    options.locale = value;
}
void SetLanguage(Options& options, const std::string& value) {
    static constexpr Choice<const char*> Choices[] = {{"English", "English"}, {"German", "German"}};
    options.language = Choose("--language", value, Choices);
}
void SetAngle(Options& options, const std::string& value) {
    static constexpr Choice<char> Choices[] = {
        {"file", FormatChoice::UnitOfFile}, {"deg", '\xB0'}, {"rad", 'r'}, {"gon", 'g'}};
    options.formats.angleUnit = Choose("--angle-unit", value, Choices);
}
std::uint32_t ReadNumber(const char* option, const std::string& text, std::uint32_t largest) {
    std::uint32_t number = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end || number > largest)
        throw UsageError(
            {"%1 takes a number from 0 to %2, not %3", {option, std::to_string(largest), InQuotes(text)}});
    return number;
}
void SetDigits(Options& options, const std::string& value) {
    options.formats.digits = ReadNumber("--digits", value, MostDigits);
}
void SetGrouping(Options& options, const std::string& value) {
    static constexpr Choice<std::uint32_t> Choices[] = {{"none", 0}, {"3", 3}, {"3,2", 32}};
    options.formats.grouping = Choose("--grouping", value, Choices);
}
void SetKeep(Options& options, const std::string&) {
    options.keep = true;
}
void SetStations(Options& options, const std::string& value) {
    static constexpr Choice<StationKind> Choices[] = {
        {"auto", StationKind::Automatic}, {"road", StationKind::Road}, {"railway", StationKind::Railway}};
    options.stations = Choose("--station-kind", value, Choices);
}
void SetHelp(Options& options, const std::string&) {
    options.help = true;
}
void SetVersion(Options& options, const std::string&) {
    options.version = true;
}

enum class Takes { Nothing, Value, PerhapsValue };

struct Option {
    std::string_view name;
    Takes takes;
    void (*apply)(Options&, const std::string& value);
};
constexpr Option KnownOptions[] = {
    {"--list", Takes::Nothing, SetList},
    {"--screenshot", Takes::Value, SetScreenshot},
    {"--size", Takes::Value, SetSize},
    {"--expand", Takes::Value, AddExpand},
    {"--expand-all", Takes::Nothing, SetExpandAll},
    {"--set", Takes::Value, AddSet},
    {"--save", Takes::PerhapsValue, SetSave},
    {"--encoding", Takes::Value, SetEncoding},
    {"--locale", Takes::Value, SetLocale},
    {"--language", Takes::Value, SetLanguage},
    {"--angle-unit", Takes::Value, SetAngle},
    {"--digits", Takes::Value, SetDigits},
    {"--grouping", Takes::Value, SetGrouping},
    {"--keep", Takes::Nothing, SetKeep},
    {"--station-kind", Takes::Value, SetStations},
    {"--help", Takes::Nothing, SetHelp},
    {"--version", Takes::Nothing, SetVersion},
};

const Option& FindOption(std::string_view name) {
    const auto* found = std::find_if(std::begin(KnownOptions), std::end(KnownOptions),
                                     [&](const Option& option) { return option.name == name; });
    if (found == std::end(KnownOptions))
        throw UsageError({"there is no option %1", {InQuotes(name)}});
    return *found;
}

void SetFile(Options& options, const std::string& file) {
    if (file.empty())
        throw UsageError("the name of the file is empty");
    if (!options.file.empty())
        throw UsageError({"only one file can be shown, %1 is too many", {InQuotes(file)}});
    options.file = file;
}

// Applies the option at `index`; returns the index of its last argument.
std::size_t ApplyOption(Options& options, const std::vector<std::string>& arguments, std::size_t index) {
    const std::string& argument = arguments[index];
    const std::size_t equals = argument.find('=');
    const Option& option = FindOption(std::string_view(argument).substr(0, equals));
    const std::string name(option.name);
    if (option.takes == Takes::Nothing) {
        if (equals != std::string::npos)
            throw UsageError({"%1 takes no value", {name}});
        option.apply(options, {});
        return index;
    }
    const bool isInside = equals != std::string::npos;
    const bool isLast = index + 1 == arguments.size();
    if (option.takes == Takes::PerhapsValue && !isInside &&
        (isLast || arguments[index + 1].starts_with('-'))) {
        option.apply(options, {});
        return index;
    }
    if (!isInside && isLast)
        throw UsageError({"%1 needs a value", {name}});
    const std::string value = isInside ? argument.substr(equals + 1) : arguments[index + 1];
    if (value.empty())
        throw UsageError({"%1 needs a value", {name}});
    option.apply(options, value);
    return isInside ? index : index + 1;
}

} // namespace

UsageError::UsageError(const Message& reason)
    : Error(platform::FromUtf8(reason.Text()).text), m_reason(reason) {}

Options ReadOptions(const std::vector<std::string>& arguments) {
    Options options;
    bool onlyFiles = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (!onlyFiles && argument == "--")
            onlyFiles = true;
        else if (!onlyFiles && argument.starts_with('-') && argument != "-")
            i = ApplyOption(options, arguments, i);
        else
            SetFile(options, argument);
    }
    const bool isJoined = std::any_of(arguments.begin(), arguments.end(), [](const std::string& argument) {
        return argument.starts_with("--save=");
    });
    if (options.file.empty() && !isJoined)
        std::swap(options.file, options.saveAs); // it was the only file that is named
    const bool needsFile = options.list || !options.screenshot.empty() || !options.expand.empty() ||
                           options.expandAll || !options.set.empty() || options.save;
    if (needsFile && options.file.empty() && !options.help && !options.version)
        throw UsageError("no file is named");
    if (!options.set.empty() && !options.save && !options.list)
        throw UsageError("--set needs --save or --list");
    if (options.save && !options.screenshot.empty())
        throw UsageError({"%1 and %2 exclude each other", {"--save", "--screenshot"}});
    if (options.list && !options.screenshot.empty())
        throw UsageError({"%1 and %2 exclude each other", {"--list", "--screenshot"}});
    return options;
}

std::string LanguageIn(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size() && arguments[i] != "--"; ++i) {
        if (!arguments[i].starts_with("--language"))
            continue;
        try {
            ApplyOption(options, arguments, i);
        } catch (const UsageError&) {
            // Whoever reads the options refuses it.
        }
    }
    return options.language;
}

} // namespace korvel::inspector
