#pragma once

#include <string>

namespace korvel::inspector {

/// What the inspector itself says, in UTF-8; the library's texts are its own.
struct ProgramTexts {
    const char* programName;
    const char* fileMenu;
    const char* open;
    const char* quit;
    const char* viewMenu;
    const char* lists;
    const char* helpMenu;
    const char* about;
    const char* aboutText; // %1: the version
    const char* openCaption;
    const char* landXmlFiles;
    const char* allFiles;
    const char* invitation;
    const char* name;
    const char* value;
    const char* objects; // %1: how many, not one
    const char* oneObject;
    const char* members; // the same
    const char* oneMember;
    const char* readOnly;
    const char* listOfLists;
    const char* asTree;
    const char* newValue; // what new entries are called
    const char* listHelp;
    const char* listsAreNotSaved;
    const char* valueOfList;
    const char* usedTimes; // %1: how often
    const char* usedOnce;
    const char* notUsed;
    const char* noLists;
};

/// The texts in the language of the process, which is German when it is not English.
const ProgramTexts& TheProgramTexts();

/// One of them for a window of the library, in the code page of its texts.
std::string InCodePage(const char* utf8);

} // namespace korvel::inspector
