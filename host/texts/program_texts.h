#pragma once

#include <string>

namespace korvel::inspector {

/// A text in both languages.
struct ProgramText {
    const char* english;
    const char* german;

    /// In the language of the process: German, when that is not English.
    const char* Utf8() const;
};

/// What the inspector itself says, in UTF-8; the library's texts are its own.
struct ProgramTexts {
    ProgramText programName = {"LandXML Inspector", "LandXML-Inspektor"};
    ProgramText fileMenu = {"&File", "&Datei"};
    ProgramText open = {"&Open…", "Ö&ffnen…"};
    ProgramText recentFiles = {"Open &Recent", "&Zuletzt geöffnet"};
    ProgramText reload = {"Re&load", "&Neu laden"};
    ProgramText save = {"&Save", "&Speichern"};
    ProgramText saveAs = {"Save &As…", "Speichern &unter…"};
    ProgramText close = {"&Close", "S&chließen"};
    ProgramText quit = {"&Quit", "&Beenden"};
    ProgramText editMenu = {"&Edit", "&Bearbeiten"};
    ProgramText undo = {"&Undo", "&Rückgängig"};
    ProgramText redo = {"&Redo", "&Wiederholen"};
    ProgramText cut = {"Cu&t", "&Ausschneiden"};
    ProgramText copy = {"&Copy", "&Kopieren"};
    ProgramText paste = {"&Paste", "&Einfügen"};
    ProgramText addAttribute = {"&New Attribute…", "&Neues Attribut…"};
    ProgramText removeAttribute = {"&Delete Attribute", "Attribut &löschen"};
    ProgramText rename = {"Rena&me", "&Umbenennen"};
    ProgramText changeType = {"Change T&ype", "&Typ ändern"};
    ProgramText wholeNumber = {"&Whole Number", "&Ganze Zahl"};
    ProgramText number = {"&Number", "&Zahl"};
    ProgramText angle = {"&Angle", "&Winkel"};
    ProgramText text = {"&Text", "&Text"};
    ProgramText writeProtected = {"&Write Protected", "&Schreibgeschützt"};
    ProgramText viewMenu = {"&View", "&Ansicht"};
    ProgramText lists = {"&Lists", "&Listen"};
    ProgramText documentMenu = {"&Document", "D&okument"};
    ProgramText codes = {"&Codes…", "&Codes…"};
    ProgramText codesCaption = {"Codes of the file", "Codes der Datei"};
    ProgramText codesLeftOut = {
        "%1 codes of the file are left out: a list of codes cannot hold \";\" or \":\" in a code.",
        "%1 Codes der Datei fehlen: eine Liste kann \";\" und \":\" in einem Code nicht "
        "enthalten."}; // %1: how many, not one
    ProgramText oneCodeLeftOut = {
        "1 code of the file is left out: a list of codes cannot hold \";\" or \":\" in a code.",
        "1 Code der Datei fehlt: eine Liste kann \";\" und \":\" in einem Code nicht enthalten."};
    ProgramText description = {"&Description…", "&Beschreibung…"};
    ProgramText descriptionCaption = {"Description of the file", "Beschreibung der Datei"};
    ProgramText helpMenu = {"&Help", "&Hilfe"};
    ProgramText about = {"&About the Inspector", "Ü&ber den Inspektor"};
    ProgramText aboutText = {
        "Version %1\n\nShows a LandXML document as a tree of objects with typed attributes.",
        "Version %1\n\nZeigt ein LandXML-Dokument als Baum von Objekten mit typisierten "
        "Attributen."}; // %1: the version
    ProgramText unsaved = {"The changes to “%1” are not saved.",
                           "Die Änderungen an „%1“ sind nicht gespeichert."}; // %1: the name of the file
    ProgramText discard = {"&Don’t Save", "&Nicht speichern"};
    ProgramText changedElsewhere = {
        "“%1” has been changed by another program. Saving overwrites that.",
        "„%1“ ist von einem anderen Programm geändert worden. Beim Speichern geht "
        "das verloren."}; // %1: the same
    ProgramText overwrite = {"&Overwrite", "Ü&berschreiben"};
    ProgramText changedAndUnsaved = {
        "“%1” has been changed by another program. Reloading it loses the changes that are not saved.",
        "„%1“ ist von einem anderen Programm geändert worden. Beim Neuladen gehen die Änderungen verloren, "
        "die nicht gespeichert sind."}; // %1: the same
    ProgramText reloadingLoses = {
        "Reloading “%1” loses the changes that are not saved.",
        "Beim Neuladen von „%1“ gehen die Änderungen verloren, die nicht gespeichert sind."}; // %1: the same
    ProgramText reloadNow = {"&Reload", "&Neu laden"};
    ProgramText reloaded = {"“%1” has been changed by another program and was reloaded.",
                            "„%1“ ist von einem anderen Programm geändert und neu geladen worden."};
    ProgramText notReloaded = {
        "“%1” has been changed, but cannot be read; the former document is shown: %2",
        "„%1“ ist geändert worden, aber nicht lesbar; gezeigt wird der bisherige Stand: %2"}; // %2: why
    ProgramText landXmlFiles = {"LandXML files", "LandXML-Dateien"};
    ProgramText allFiles = {"All files", "Alle Dateien"};
    ProgramText invitation = {"No file is open.\n\nChoose File > Open… or drop a LandXML file here.",
                              "Keine Datei ist geöffnet.\n\nWählen Sie Datei > Öffnen… oder ziehen Sie eine "
                              "LandXML-Datei hierher."};
    ProgramText name = {"Name", "Name"};
    ProgramText value = {"Value", "Wert"};
    ProgramText objects = {"%1 objects", "%1 Objekte"}; // %1: how many, not one
    ProgramText oneObject = {"1 object", "1 Objekt"};
    ProgramText members = {"%1 members", "%1 Attribute"}; // the same
    ProgramText oneMember = {"1 member", "1 Attribut"};
    ProgramText readOnly = {"read only", "schreibgeschützt"};
    ProgramText messages = {"&Messages", "&Meldungen"};
    ProgramText kindsOfMessages = {"Kinds of messages", "Arten von Meldungen"}; // said, not shown
    ProgramText attributes = {"Attributes", "Attribute"};                       // the same
    ProgramText allMessages = {"All messages", "Alle Meldungen"};
    ProgramText warningsAndErrors = {"Warnings and errors", "Warnungen und Fehler"};
    ProgramText errorsOnly = {"Errors only", "Nur Fehler"};
    ProgramText filterHint = {"Filter by text", "Nach Text filtern"};
    ProgramText copyMessages = {"&Copy", "&Kopieren"};
    ProgramText saveMessages = {"&Save…", "&Speichern…"};
    ProgramText clearMessages = {"C&lear", "&Leeren"};
    ProgramText textFiles = {"Text files", "Textdateien"};
    ProgramText messagesSaved = {"The messages have been saved.", "Die Meldungen wurden gespeichert."};
    ProgramText readingFile = {"Reading the file…", "Die Datei wird gelesen…"};
    ProgramText checkingValues = {"Checking the values…", "Die Werte werden geprüft…"};
    ProgramText fillingTable = {"Filling the table…", "Die Tabelle wird gefüllt…"};
    ProgramText copied = {"Copied to the clipboard.", "In die Zwischenablage kopiert."};
    ProgramText notCopied = {"The clipboard is not available; nothing was copied.",
                             "Die Zwischenablage ist nicht verfügbar; nichts wurde kopiert."};
    ProgramText copyStations = {"Copy Stations", "Stationen kopieren"};
    ProgramText station = {"Station", "Station"};
    ProgramText stationBack = {"Back", "Alt"};
    ProgramText stationAhead = {"Ahead", "Neu"};
    ProgramText stationStart = {"Start", "Anfang"};
    ProgramText stationEnd = {"End", "Ende"};
    ProgramText copyPath = {"Copy Path", "Pfad kopieren"};
    ProgramText copyAsInFile = {"Copy as in the File", "Wie in der Datei kopieren"};
    ProgramText statistics = {"Statistics", "Statistik"};
    ProgramText progress = {"Progress", "Fortschritt"};
    ProgramText points = {"Points", "Punkte"};
    ProgramText faces = {"Faces", "Maschen"};
    ProgramText brokenFaces = {"Faces without their points", "Maschen ohne ihre Punkte"};
    ProgramText planArea = {"Area in plan", "Grundrissfläche"};
    ProgramText slopeArea = {"Area of the surface", "Oberfläche"};
    ProgramText lowestPoint = {"Lowest point", "Tiefster Punkt"};
    ProgramText highestPoint = {"Highest point", "Höchster Punkt"};
    ProgramText cannotBeComputed = {"cannot be computed: there is no room in memory",
                                    "nicht zu berechnen: der Speicher reicht nicht"};
    ProgramText oldStatistics = {"The statistics were those before this change and have been removed.",
                                 "Die Statistik galt vor dieser Änderung und ist entfernt worden."};
    ProgramText listOfLists = {"List:", "Liste:"};
    ProgramText asTree = {"As a tree", "Als Baum"};
    ProgramText newValue = {"new value", "neuer Wert"}; // what new entries are called
    ProgramText listHelp = {
        "Checked: used in this file. Right click: add, rename, remove.",
        "Angehakt: in dieser Datei verwendet. Rechtsklick: hinzufügen, umbenennen, löschen."};
    ProgramText listsAreNotSaved = {"Changes stay in this window; they are not saved.",
                                    "Änderungen bleiben in diesem Fenster; sie werden nicht gespeichert."};
    ProgramText valueOfList = {"Value:", "Wert:"};
    ProgramText usedTimes = {"used %1 times", "%1-mal verwendet"}; // %1: how often
    ProgramText usedOnce = {"used once", "einmal verwendet"};
    ProgramText notUsed = {"not used", "nicht verwendet"};
    ProgramText noLists = {"This file uses no lists.", "Diese Datei verwendet keine Listen."};
};

inline constexpr ProgramTexts TheProgramTexts;

/// One of them for a window of the library, in the code page of its texts.
std::string InCodePage(const ProgramText& text);

} // namespace korvel::inspector
