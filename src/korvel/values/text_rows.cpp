#include "korvel/values/text_rows.h"

#include "korvel/platform/code_page.h"
#include "korvel/values/text_table.h"

#include <array>
#include <string>

namespace korvel::internal {

namespace {

using Rows = std::array<TextRow, TextCount>;

// Bytes of the Windows code pages 1250 and 1252, in which each of them means the same. Rows keep their
// numbers: they are the text ids. Some texts occur in two rows, and the two columns of row 129 name different
// systems; both are kept.
// clang-format off
constexpr Rows FixedRows{{
    {0, "invalid input", "Eingabe inkorrekt"},
    {1, "Invalid", "Ung\xFCltig"},
    {2, "Document Files (*.pdf;*.doc;*.docx;*.xls;*.xlsx;*.ppt;*.pptx)|*.pdf;*.doc;*.docx;*.xls;*.xlsx;*.ppt;*.pptx|", "Dokumente (*.pdf;*.doc;*.docx;*.xls;*.xlsx;*.ppt;*.pptx)|*.pdf;*.doc;*.docx;*.xls;*.xlsx;*.ppt;*.pptx|"},
    {3, "Text Files (*.txt;*.ini)|*.txt;*.ini|", "Textdateien (*.txt;*.ini)|*.txt;*.ini|"},
    {4, "XML Files (*.xml)|*.xml|", "XML-Dateien (*.xml)|*.xml|"},
    {5, "X Files (*.x )|*.x|", "X-Dateien (*.x )|*.x|"},
    {6, "REB Files (*.reb)|*.reb|", "REB-Dateien (*.reb)|*.reb|"},
    {7, "DTM Files (*.reb, *.10D, *.045)|*.reb;*.10D;*.045|", "DGM-Dateien (*.reb, *.10D, *.045)|*.reb;*.10D;*.045|"},
    {8, "Image Files (*.bmp;*.tif;*.tiff;*.gif;*.jpg;*.jpeg;*.png;*.pcx)|*.bmp;*.tif;*.tiff;*.gif;*.jpg;*.jpeg;*.png;*.pcx|", "Bilddateien (*.bmp;*.tif;*.tiff;*.gif;*.jpg;*.jpeg;*.png;*.pcx)|*.bmp;*.tif;*.tiff;*.gif;*.jpg;*.jpeg;*.png;*.pcx|"},
    {9, "Video Files (*.avi;*.divx;*.mkv;*.mpeg;*.wmv)|*.avi;*.divx;*.mkv;*.mpeg;*.wmv|", "Videodateien (*.avi;*.divx;*.mkv;*.mpeg;*.wmv)|*.avi;*.divx;*.mkv;*.mpeg;*.wmv|"},
    {10, "All Files  (*.*)|*.*|", "Alle Dateien (*.*)|*.*|"},
    {11, "New", "Neu"},
    {12, "new value", "neuer Wert"},
    {13, "insert new value", "neuen Wert einf\xFCgen"},
    {14, "insert group", "Gruppe einf\xFCgen"},
    {15, "insert new value at '$1'", "neuen Wert bei '$1' einf\xFCgen"},
    {16, "insert new group at '$1'", "neue Gruppe bei '$1' einf\xFCgen"},
    {17, "edit '$1'", "'$1' bearbeiten"},
    {18, "Data sheet", "Datenblatt"},
    {19, "Type", "Type"},
    {20, "Date", "Datum"},
    {21, "Time", "Zeit"},
    {22, "Source", "Quelle"},
    {23, "Event", "Ereignis"},
    {24, "Information", "Information"},
    {25, "Warning", "Warnung"},
    {26, "Error", "Fehler"},
    {27, "Exception", "Ausnahme"},
    {28, "Member added", "Attribut hinzugef\xFCgt"},
    {29, "Member removed", "Attribut entfernt"},
    {30, "Member edited", "Attribut bearbeitet"},
    {31, "Member renamed", "Attribut umbenannt"},
    {32, "Type changed", "Typ ge\xE4ndert"},
    {33, "Member value", "Attributwert"},
    {34, "could not be converted into", "konnte nicht konvertiert werden in"},
    {35, "already existing", "existiert bereits"},
    {36, "attribute name", "Attributname"},
    {37, "System configuration", "Systemeinstellung"},
    {38, "Decimal separator", "Dezimaltrennzeichen"},
    {39, "Number of decimal places", "Anzahl der Dezimalstellen"},
    {40, "Token for digit grouping", "Symbol f\xFCr Zifferngruppierung"},
    {41, "Digit grouping", "Zifferngruppierung"},
    {42, "Negative sign", "Negatives Vorzeichen"},
    {43, "Format for negative numbers", "Format f\xFCr negative Zahlen"},
    {44, "Show leading zeros", "F\xFChrende Nullen anzeigen"},
    {45, "invalid input: '$1' can not be converted in data type $2", "ung\xFCltige Werteingabe: '$1' kann nicht in den Datentyp $2 konvertiert werden"},
    {46, "unknown exception", "unbekannte Ausnahme"},
    {47, "Formats", "Formate"},
    {48, "erase '$1'", "'$1' l\xF6schen"},
    {49, "rename '$1'", "'$1' umbenennen"},
    {50, "Enumeration value added", "Aufz\xE4hlungswert hinzugef\xFCgt"},
    {51, "Enumeration value removed", "Aufz\xE4hlungswert entfernt"},
    {52, "Enumeration value changed", "Aufz\xE4hlungswert ge\xE4ndert"},
    {53, "", ""},
    {54, "Website", "Webseite"},
    {55, "E-Mail", "E-Mail"},
    {56, "Info about", "Info \xFC" "ber"},
    {57, "Version", "Version"},
    {58, "Height", "H\xF6he"},
    {59, "Color", "Farbe"},
    {60, "The given gradient index is invalid!", "Der gegebene Gradientenindex ist ung\xFCltig!"},
    {61, "Unable to delete the selected entry,\nsince the gradient requires at least two entries!", "Der ausgew\xE4hlte Eintrag konnte nicht gel\xF6scht werden,\nda der Gradient mindestens zwei Eintr\xE4ge ben\xF6tigt!"},
    {62, "Please enter a number for the height!", "Bitte geben Sie eine Zahl f\xFCr die H\xF6he an!"},
    {63, "The specified number is not in the range of %.2f to %.2f!", "Die angegebene Zahl liegt nicht im Bereich von %.2f bis %.2f!"},
    {64, "The number specified is not in the range of %.2f", "Die angegebene Zahl liegt nicht im Bereich bis %.2f!"},
    {65, "The number specified is out of range from %.2f!", "Die angegebene Zahl liegt nicht im Bereich ab %.2f!"},
    {66, "The number specified is out of range from %.2f!", "Die angegebene Zahl liegt nicht im Bereich ab %.2f!"},
    {67, "Color Schema invalid - 2 or more equal heights", "Farbverlauf ung\xFCltig - 2 oder mehr gleiche H\xF6hen"},
    {68, "Rename denied!", "Umbenennen verweigert!"},
    {69, "Delete", "L\xF6schen"},
    {70, "Rename", "Umbenennen"},
    {71, "Write protected", "Schreibgesch\xFCtzt"},
    {72, "Attribute could not be renamed!", "Attribut konnte nicht umbenannt werden!"},
    {73, "Value is outside the ranges of 0-100!", "Wert liegt ausserhalb des Bereichen von 0-100!"},
    {74, "Open", "\xD6" "ffnen"},
    {75, "Open folder", "Ordner \xF6" "ffnen"},
    {76, "Open with...", "\xD6" "ffnen mit..."},
    {77, "Value", "Wert"},
    {78, "Column", "Spalte"},
    {79, "Row", "Zeile"},
    {80, "Complete tree", "Gesamter Baum"},
    {81, "Copy", "Kopieren"},
    {82, "Clipboard", "Zwischenablage"},
    {83, "Data was copied to the clipboard.", "Die Daten wurden in die Zwischenablage kopiert."},
    {84, "Change", "\xC4ndern"},
    {85, "", ""},
    {86, "", ""},
    {87, "File \"$1\" not found.", "Datei \"$1\" nicht gefunden."},
    {88, "Folder \"$1\" not found.", "Ordner \"$1\" nicht gefunden."},
    {89, "Access denied to file \"$1\".", "Zugriff auf Datei \"$1\" verweigert."},
    {90, "Access denied to folder \"$1\".", "Zugriff auf Ordner \"$1\" verweigert."},
    {91, "Out of memory.", "Nicht gen\xFCgend Speicher."},
    {92, "Cancel processing", "Verarbeitung abbrechen"},
    {93, "Do you want to cancel the processing?", "Soll die Verarbeitung wirklich abgebrochen werden?"},
    {94, "Text", "Text"},
    {95, "Integer", "Ganze Zahl"},
    {96, "Unsigned integer", "Ganze Zahl (vorzeichenlos)"},
    {97, "Long", "Ganze Zahl (lang)"},
    {98, "Double", "Gebrochene Zahl (lang)"},
    {99, "Float", "Gebrochene Zahl"},
    {100, "Bool", "Wahr/Falsch"},
    {101, "Group", "Gruppe"},
    {102, "Color RGB", "Farbe RGB"},
    {103, "Color ARGB", "Farbe ARGB"},
    {104, "Angle", "Winkel"},
    {105, "List", "Liste"},
    {106, "Date", "Datum"},
    {107, "File name", "Dateiname"},
    {108, "Range [0, 100]", "Bereich [0, 100]"},
    {109, "Random", "Zufall"},
    {110, "Railway Station", "Bahn-Station"},
    {111, "Road Station", "Stra\xDF" "en-Station"},
    {112, "Length", "L\xE4nge"},
    {113, "Area", "Fl\xE4" "che"},
    {114, "Volumen", "Volumen"},
    {115, "Percent", "Prozent"},
    {116, "Currency", "W\xE4hrung"},
    {117, "Void", "Ung\xFCltig"},
    {118, "32-Bit", "32-Bit"},
    {119, "64-Bit", "64-Bit"},
    {120, "The identifier must be an number!", "Der Identifikator muss eine Zahl sein!"},
    {121, "EPSG", "EPSG"},
    {122, "User defined", "Benutzerdefiniert"},
    {123, "Krefail code", "Krefail Kodierung"},
    {124, "EPSG code", "EPSG-Code"},
    {125, "Add list entry", "Listeneintrag hinzuf\xFCgen"},
    {126, "Edit list entry", "Listeneintrag editieren"},
    {127, "Height coordinate systems", "H\xF6henbezugssysteme"},
    {128, "Source coordinate systems", "Quelllagebezugssysteme"},
    {129, "Source coordinate system", "Ziellagebezugssystem"},
    {130, "Added height value", "Addierter H\xF6henwert"},
    {131, "Height value", "H\xF6henwert"},
    {132, "Unkown", "Unbekannt"},
}};
// clang-format on

constexpr bool IdsAreIndexes(const Rows& rows) {
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].id != static_cast<int>(i))
            return false;
    return true;
}
static_assert(IdsAreIndexes(FixedRows), "Text looks a row up by its place");

// The rows that the build gives, in UTF-8, as a command line has them.
Rows WithMakerTexts() {
    static const std::string rightsLine = platform::FromUtf8(KORVEL_RIGHTS_LINE).text;
    static const std::string webAddress = platform::FromUtf8(KORVEL_WEB_ADDRESS).text;
    static const std::string mailAddress = platform::FromUtf8(KORVEL_MAIL_ADDRESS).text;
    Rows rows = FixedRows;
    for (const auto& [id, text] : {std::pair{53, &rightsLine}, {85, &webAddress}, {86, &mailAddress}})
        rows[static_cast<std::size_t>(id)] = {id, text->c_str(), text->c_str()};
    return rows;
}

} // namespace

std::span<const TextRow> TextRows() {
    static const Rows rows = WithMakerTexts();
    return rows;
}

} // namespace korvel::internal
