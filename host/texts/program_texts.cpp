#include "texts/program_texts.h"

#include "korvel/platform/code_page.h"
#include "texts/messages.h"

namespace korvel::inspector {

namespace {

constexpr ProgramTexts EnglishTexts = {
    .programName = "LandXML Inspector",
    .fileMenu = "&File",
    .open = "&Open…",
    .quit = "&Quit",
    .viewMenu = "&View",
    .lists = "&Lists",
    .helpMenu = "&Help",
    .about = "&About the Inspector",
    .aboutText = "Version %1\n\nShows a LandXML document as a tree of objects with typed attributes.",
    .openCaption = "Open a LandXML file",
    .landXmlFiles = "LandXML files",
    .allFiles = "All files",
    .invitation = "No file is open.\n\nChoose File > Open… or drop a LandXML file here.",
    .name = "Name",
    .value = "Value",
    .objects = "%1 objects",
    .oneObject = "1 object",
    .members = "%1 members",
    .oneMember = "1 member",
    .readOnly = "read only",
    .listOfLists = "List:",
    .asTree = "As a tree",
    .newValue = "new value",
    .listHelp = "Checked: used in this file. Right click: add, rename, remove.",
    .listsAreNotSaved = "Changes stay in this window; they are not saved.",
    .valueOfList = "Value:",
    .usedTimes = "used %1 times",
    .usedOnce = "used once",
    .notUsed = "not used",
    .noLists = "This file uses no lists.",
};

constexpr ProgramTexts GermanTexts = {
    .programName = "LandXML-Inspektor",
    .fileMenu = "&Datei",
    .open = "Ö&ffnen…",
    .quit = "&Beenden",
    .viewMenu = "&Ansicht",
    .lists = "&Listen",
    .helpMenu = "&Hilfe",
    .about = "Ü&ber den Inspektor",
    .aboutText = "Version %1\n\nZeigt ein LandXML-Dokument als Baum von Objekten mit typisierten "
                 "Attributen.",
    .openCaption = "LandXML-Datei öffnen",
    .landXmlFiles = "LandXML-Dateien",
    .allFiles = "Alle Dateien",
    .invitation =
        "Keine Datei ist geöffnet.\n\nWählen Sie Datei > Öffnen… oder ziehen Sie eine LandXML-Datei hierher.",
    .name = "Name",
    .value = "Wert",
    .objects = "%1 Objekte",
    .oneObject = "1 Objekt",
    .members = "%1 Attribute",
    .oneMember = "1 Attribut",
    .readOnly = "schreibgeschützt",
    .listOfLists = "Liste:",
    .asTree = "Als Baum",
    .newValue = "neuer Wert",
    .listHelp = "Angehakt: in dieser Datei verwendet. Rechtsklick: hinzufügen, umbenennen, löschen.",
    .listsAreNotSaved = "Änderungen bleiben in diesem Fenster; sie werden nicht gespeichert.",
    .valueOfList = "Wert:",
    .usedTimes = "%1-mal verwendet",
    .usedOnce = "einmal verwendet",
    .notUsed = "nicht verwendet",
    .noLists = "Diese Datei verwendet keine Listen.",
};

} // namespace

const ProgramTexts& TheProgramTexts() {
    return SpeaksGerman() ? GermanTexts : EnglishTexts;
}

std::string InCodePage(const char* utf8) {
    return platform::FromUtf8(utf8).text;
}

} // namespace korvel::inspector
