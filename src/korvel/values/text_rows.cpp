#include "korvel/values/text_rows.h"

#include "korvel/platform/code_page.h"

#include <string>

namespace korvel {

namespace {

// The Hungarian column stands for a language that was never translated; choosing it gives empty texts.
constexpr const char* None = "";

// Bytes of the Windows code pages 1250 and 1252, in which each of them means the same. Rows keep their
// numbers: they are the text ids. Some texts stand in two rows, and the two columns of row 129 name different
// systems; both are kept.
constexpr TextRowTable Rows{{
    {"invalid input", "Eingabe inkorrekt", None}, // 0
    {"Invalid", "Ung\xFCltig", None},             // 1
    {"Document Files "
     "(*.pdf;*.doc;*.docx;*.xls;*.xlsx;*.ppt;*.pptx)|*.pdf;*.doc;*.docx;*.xls;*.xlsx;*.ppt;*.pptx|",
     "Dokumente (*.pdf;*.doc;*.docx;*.xls;*.xlsx;*.ppt;*.pptx)|*.pdf;*.doc;*.docx;*.xls;*.xlsx;*.ppt;*.pptx|",
     None},                                                                                    // 2
    {"Text Files (*.txt;*.ini)|*.txt;*.ini|", "Textdateien (*.txt;*.ini)|*.txt;*.ini|", None}, // 3
    {"XML Files (*.xml)|*.xml|", "XML-Dateien (*.xml)|*.xml|", None},                          // 4
    {"X Files (*.x )|*.x|", "X-Dateien (*.x )|*.x|", None},                                    // 5
    {"REB Files (*.reb)|*.reb|", "REB-Dateien (*.reb)|*.reb|", None},                          // 6
    {"DTM Files (*.reb, *.10D, *.045)|*.reb;*.10D;*.045|",
     "DGM-Dateien (*.reb, *.10D, *.045)|*.reb;*.10D;*.045|", None}, // 7
    {"Image Files "
     "(*.bmp;*.tif;*.tiff;*.gif;*.jpg;*.jpeg;*.png;*.pcx)|*.bmp;*.tif;*.tiff;*.gif;*.jpg;*.jpeg;*.png;*.pcx|",
     "Bilddateien "
     "(*.bmp;*.tif;*.tiff;*.gif;*.jpg;*.jpeg;*.png;*.pcx)|*.bmp;*.tif;*.tiff;*.gif;*.jpg;*.jpeg;*.png;*.pcx|",
     None}, // 8
    {"Video Files (*.avi;*.divx;*.mkv;*.mpeg;*.wmv)|*.avi;*.divx;*.mkv;*.mpeg;*.wmv|",
     "Videodateien (*.avi;*.divx;*.mkv;*.mpeg;*.wmv)|*.avi;*.divx;*.mkv;*.mpeg;*.wmv|", None}, // 9
    {"All Files  (*.*)|*.*|", "Alle Dateien (*.*)|*.*|", None},                                // 10
    {"New", "Neu", None},                                                                      // 11
    {"new value", "neuer Wert", None},                                                         // 12
    {"insert new value", "neuen Wert einf\xFCgen", None},                                      // 13
    {"insert group", "Gruppe einf\xFCgen", None},                                              // 14
    {"insert new value at '$1'", "neuen Wert bei '$1' einf\xFCgen", None},                     // 15
    {"insert new group at '$1'", "neue Gruppe bei '$1' einf\xFCgen", None},                    // 16
    {"edit '$1'", "'$1' bearbeiten", None},                                                    // 17
    {"Data sheet", "Datenblatt", None},                                                        // 18
    {"Type", "Type", None},                                                                    // 19
    {"Date", "Datum", None},                                                                   // 20
    {"Time", "Zeit", None},                                                                    // 21
    {"Source", "Quelle", None},                                                                // 22
    {"Event", "Ereignis", None},                                                               // 23
    {"Information", "Information", None},                                                      // 24
    {"Warning", "Warnung", None},                                                              // 25
    {"Error", "Fehler", None},                                                                 // 26
    {"Exception", "Ausnahme", None},                                                           // 27
    {"Member added", "Attribut hinzugef\xFCgt", None},                                         // 28
    {"Member removed", "Attribut entfernt", None},                                             // 29
    {"Member edited", "Attribut bearbeitet", None},                                            // 30
    {"Member renamed", "Attribut umbenannt", None},                                            // 31
    {"Type changed", "Typ ge\xE4ndert", None},                                                 // 32
    {"Member value", "Attributwert", None},                                                    // 33
    {"could not be converted into", "konnte nicht konvertiert werden in", None},               // 34
    {"already existing", "existiert bereits", None},                                           // 35
    {"attribute name", "Attributname", None},                                                  // 36
    {"System configuration", "Systemeinstellung", None},                                       // 37
    {"Decimal separator", "Dezimaltrennzeichen", None},                                        // 38
    {"Number of decimal places", "Anzahl der Dezimalstellen", None},                           // 39
    {"Token for digit grouping", "Symbol f\xFCr Zifferngruppierung", None},                    // 40
    {"Digit grouping", "Zifferngruppierung", None},                                            // 41
    {"Negative sign", "Negatives Vorzeichen", None},                                           // 42
    {"Format for negative numbers", "Format f\xFCr negative Zahlen", None},                    // 43
    {"Show leading zeros", "F\xFChrende Nullen anzeigen", None},                               // 44
    {"invalid input: '$1' can not be converted in data type $2",
     "ung\xFCltige Werteingabe: '$1' kann nicht in den Datentyp $2 konvertiert werden", None}, // 45
    {"unknown exception", "unbekannte Ausnahme", None},                                        // 46
    {"Formats", "Formate", None},                                                              // 47
    {"erase '$1'", "'$1' l\xF6schen", None},                                                   // 48
    {"rename '$1'", "'$1' umbenennen", None},                                                  // 49
    {"Enumeration value added", "Aufz\xE4hlungswert hinzugef\xFCgt", None},                    // 50
    {"Enumeration value removed", "Aufz\xE4hlungswert entfernt", None},                        // 51
    {"Enumeration value changed", "Aufz\xE4hlungswert ge\xE4ndert", None},                     // 52
    {None, None, None},                                                                        // 53
    {"Website", "Webseite", None},                                                             // 54
    {"E-Mail", "E-Mail", None},                                                                // 55
    {"Info about",
     "Info \xFC"
     "ber",
     None},                                                                                          // 56
    {"Version", "Version", None},                                                                    // 57
    {"Height", "H\xF6he", None},                                                                     // 58
    {"Color", "Farbe", None},                                                                        // 59
    {"The given gradient index is invalid!", "Der gegebene Gradientenindex ist ung\xFCltig!", None}, // 60
    {"Unable to delete the selected entry,\nsince the gradient requires at least two entries!",
     "Der ausgew\xE4hlte Eintrag konnte nicht gel\xF6scht werden,\nda der Gradient mindestens zwei "
     "Eintr\xE4ge ben\xF6tigt!",
     None},                                                                                              // 61
    {"Please enter a number for the height!", "Bitte geben Sie eine Zahl f\xFCr die H\xF6he an!", None}, // 62
    {"The specified number is not in the range of %.2f to %.2f!",
     "Die angegebene Zahl liegt nicht im Bereich von %.2f bis %.2f!", None}, // 63
    {"The number specified is not in the range of %.2f",
     "Die angegebene Zahl liegt nicht im Bereich bis %.2f!", None}, // 64
    {"The number specified is out of range from %.2f!", "Die angegebene Zahl liegt nicht im Bereich ab %.2f!",
     None}, // 65
    {"The number specified is out of range from %.2f!", "Die angegebene Zahl liegt nicht im Bereich ab %.2f!",
     None}, // 66
    {"Color Schema invalid - 2 or more equal heights",
     "Farbverlauf ung\xFCltig - 2 oder mehr gleiche H\xF6hen", None},                                  // 67
    {"Rename denied!", "Umbenennen verweigert!", None},                                                // 68
    {"Delete", "L\xF6schen", None},                                                                    // 69
    {"Rename", "Umbenennen", None},                                                                    // 70
    {"Write protected", "Schreibgesch\xFCtzt", None},                                                  // 71
    {"Attribute could not be renamed!", "Attribut konnte nicht umbenannt werden!", None},              // 72
    {"Value is outside the ranges of 0-100!", "Wert liegt ausserhalb des Bereichen von 0-100!", None}, // 73
    {"Open",
     "\xD6"
     "ffnen",
     None}, // 74
    {"Open folder",
     "Ordner \xF6"
     "ffnen",
     None}, // 75
    {"Open with...",
     "\xD6"
     "ffnen mit...",
     None},                                                                                         // 76
    {"Value", "Wert", None},                                                                        // 77
    {"Column", "Spalte", None},                                                                     // 78
    {"Row", "Zeile", None},                                                                         // 79
    {"Complete tree", "Gesamter Baum", None},                                                       // 80
    {"Copy", "Kopieren", None},                                                                     // 81
    {"Clipboard", "Zwischenablage", None},                                                          // 82
    {"Data was copied to the clipboard.", "Die Daten wurden in die Zwischenablage kopiert.", None}, // 83
    {"Change", "\xC4ndern", None},                                                                  // 84
    {None, None, None},                                                                             // 85
    {None, None, None},                                                                             // 86
    {"File \"$1\" not found.", "Datei \"$1\" nicht gefunden.", None},                               // 87
    {"Folder \"$1\" not found.", "Ordner \"$1\" nicht gefunden.", None},                            // 88
    {"Access denied to file \"$1\".", "Zugriff auf Datei \"$1\" verweigert.", None},                // 89
    {"Access denied to folder \"$1\".", "Zugriff auf Ordner \"$1\" verweigert.", None},             // 90
    {"Out of memory.", "Nicht gen\xFCgend Speicher.", None},                                        // 91
    {"Cancel processing", "Verarbeitung abbrechen", None},                                          // 92
    {"Do you want to cancel the processing?", "Soll die Verarbeitung wirklich abgebrochen werden?",
     None},                                                   // 93
    {"Text", "Text", None},                                   // 94
    {"Integer", "Ganze Zahl", None},                          // 95
    {"Unsigned integer", "Ganze Zahl (vorzeichenlos)", None}, // 96
    {"Long", "Ganze Zahl (lang)", None},                      // 97
    {"Double", "Gebrochene Zahl (lang)", None},               // 98
    {"Float", "Gebrochene Zahl", None},                       // 99
    {"Bool", "Wahr/Falsch", None},                            // 100
    {"Group", "Gruppe", None},                                // 101
    {"Color RGB", "Farbe RGB", None},                         // 102
    {"Color ARGB", "Farbe ARGB", None},                       // 103
    {"Angle", "Winkel", None},                                // 104
    {"List", "Liste", None},                                  // 105
    {"Date", "Datum", None},                                  // 106
    {"File name", "Dateiname", None},                         // 107
    {"Range [0, 100]", "Bereich [0, 100]", None},             // 108
    {"Random", "Zufall", None},                               // 109
    {"Railway Station", "Bahn-Station", None},                // 110
    {"Road Station",
     "Stra\xDF"
     "en-Station",
     None},                       // 111
    {"Length", "L\xE4nge", None}, // 112
    {"Area",
     "Fl\xE4"
     "che",
     None},                                                                                // 113
    {"Volumen", "Volumen", None},                                                          // 114
    {"Percent", "Prozent", None},                                                          // 115
    {"Currency", "W\xE4hrung", None},                                                      // 116
    {"Void", "Ung\xFCltig", None},                                                         // 117
    {"32-Bit", "32-Bit", None},                                                            // 118
    {"64-Bit", "64-Bit", None},                                                            // 119
    {"The identifier must be an number!", "Der Identifikator muss eine Zahl sein!", None}, // 120
    {"EPSG", "EPSG", None},                                                                // 121
    {"User defined", "Benutzerdefiniert", None},                                           // 122
    {"Krefail code", "Krefail Kodierung", None},                                           // 123
    {"EPSG code", "EPSG-Code", None},                                                      // 124
    {"Add list entry", "Listeneintrag hinzuf\xFCgen", None},                               // 125
    {"Edit list entry", "Listeneintrag editieren", None},                                  // 126
    {"Height coordinate systems", "H\xF6henbezugssysteme", None},                          // 127
    {"Source coordinate systems", "Quelllagebezugssysteme", None},                         // 128
    {"Source coordinate system", "Ziellagebezugssystem", None},                            // 129
    {"Added height value", "Addierter H\xF6henwert", None},                                // 130
    {"Height value", "H\xF6henwert", None},                                                // 131
    {"Unkown", "Unbekannt", None},                                                         // 132
}};

// The rows that the build was told: in UTF-8, as a command line gives them.
TextRowTable WithMakerTexts(TextRowTable rows) {
    static const std::string rightsLine = platform::FromUtf8(KORVEL_RIGHTS_LINE).text;
    static const std::string webAddress = platform::FromUtf8(KORVEL_WEB_ADDRESS).text;
    static const std::string mailAddress = platform::FromUtf8(KORVEL_MAIL_ADDRESS).text;
    rows[53] = {rightsLine.c_str(), rightsLine.c_str(), None};
    rows[85] = {webAddress.c_str(), webAddress.c_str(), None};
    rows[86] = {mailAddress.c_str(), mailAddress.c_str(), None};
    return rows;
}

} // namespace

const TextRowTable& TextRows() {
    static const TextRowTable rows = WithMakerTexts(Rows);
    return rows;
}

} // namespace korvel
