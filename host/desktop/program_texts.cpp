#include "desktop/program_texts.h"

#include "values/text_table.h"

namespace korvel::inspector {

namespace {

constexpr ProgramTexts english = {
    .programName = "LandXML Inspector",
    .fileMenu = "&File",
    .open = "&Open…",
    .quit = "&Quit",
    .helpMenu = "&Help",
    .about = "&About the Inspector",
    .aboutText = "Version %1\n\nShows a LandXML document as a tree of objects with typed attributes.",
    .openCaption = "Open a LandXML file",
    .landXmlFiles = "LandXML files",
    .allFiles = "All files",
    .invitation = "No file is open.\n\nChoose File > Open… or drop a LandXML file here.",
    .name = "Name",
    .value = "Value",
    .counts = "%1 objects, %2 members",
    .readOnly = "read only",
};

constexpr ProgramTexts german = {
    .programName = "LandXML-Inspektor",
    .fileMenu = "&Datei",
    .open = "Ö&ffnen…",
    .quit = "&Beenden",
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
    .counts = "%1 Objekte, %2 Attribute",
    .readOnly = "schreibgeschützt",
};

} // namespace

const ProgramTexts& TheProgramTexts() {
    return GetLanguageName() == "English" ? english : german;
}

} // namespace korvel::inspector
