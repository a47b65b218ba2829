#include "texts/messages.h"

#include "korvel/values/language.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace korvel::inspector {
namespace {

struct Translation {
    std::string_view english;
    const char* german;
};

constexpr Translation Translations[] = {
    // of documents
    {"line %1, position %2: %3", "Zeile %1, Stelle %2: %3"},
    {"%1; --encoding NAME reads the file in another encoding",
     "%1; --encoding NAME liest die Datei in einer anderen Kodierung"},
    {"'&' begins no reference", "'&' beginnt keine Referenz"},
    {"'--' is not allowed in a comment", "'--' ist in einem Kommentar nicht erlaubt"},
    {"'>' is expected here", "hier wird '>' erwartet"},
    {"'?>' is expected here", "hier wird '?>' erwartet"},
    {"']]>' ends no character section", "']]>' beendet keinen Zeichenabschnitt"},
    {"'yes' or 'no' is expected here", "hier wird 'yes' oder 'no' erwartet"},
    {"a blank is expected here", "hier wird ein Leerzeichen erwartet"},
    {"a name is expected here", "hier wird ein Name erwartet"},
    {"a name is longer than 1,000 bytes", "ein Name ist länger als 1000 Bytes"},
    {"a namespace is longer than 1,000 bytes", "ein Namensraum ist länger als 1000 Bytes"},
    {"a second root element", "ein zweites Wurzelelement"},
    {"half a character: the bytes are not UTF-16", "ein halbes Zeichen: die Bytes sind nicht UTF-16"},
    {"no declaration is allowed here", "hier ist keine Deklaration erlaubt"},
    {"no instruction may have the name %1", "keine Anweisung darf den Namen %1 haben"},
    {"text outside the root element", "Text außerhalb des Wurzelelements"},
    {"the XML declaration is not at the beginning", "die XML-Deklaration steht nicht am Anfang"},
    {"the XML declaration holds %1 where it may not", "die XML-Deklaration darf hier %1 nicht enthalten"},
    {"the XML declaration says no version", "die XML-Deklaration nennt keine Version"},
    {"the attribute %1 has no value", "das Attribut %1 hat keinen Wert"},
    {"the attribute %1 is here twice", "das Attribut %1 steht hier zweimal"},
    {"the bytes are not UTF-32", "die Bytes sind nicht UTF-32"},
    {"the bytes are not UTF-8, and no other encoding is declared",
     "die Bytes sind nicht UTF-8, und eine andere Kodierung ist nicht angegeben"},
    {"the bytes are not in the encoding %1", "die Bytes gehören nicht zur Kodierung %1"},
    {"the character %1 is not allowed in XML", "das Zeichen %1 ist in XML nicht erlaubt"},
    {"the document declares entities, which are not read",
     "das Dokument deklariert Entitäten; sie werden nicht gelesen"},
    {"the document ends inside a character section", "das Dokument endet in einem Zeichenabschnitt"},
    {"the document ends inside a comment", "das Dokument endet in einem Kommentar"},
    {"the document ends inside a document type", "das Dokument endet in einem Dokumenttyp"},
    {"the document ends inside a processing instruction",
     "das Dokument endet in einer Verarbeitungsanweisung"},
    {"the document ends inside a quoted text", "das Dokument endet in einem Text in Anführungszeichen"},
    {"the document ends inside a tag", "das Dokument endet in einem Tag"},
    {"the document ends inside the element %1, which begins in line %2",
     "das Dokument endet im Element %1, das in Zeile %2 beginnt"},
    {"the document ends where a name is expected", "das Dokument endet, wo ein Name erwartet wird"},
    {"the document has no element", "das Dokument hat kein Element"},
    {"the document is larger than 4 GB in UTF-8", "das Dokument ist in UTF-8 größer als 4 GB"},
    {"the element %1 is closed but not open", "das Element %1 wird geschlossen, ist aber nicht offen"},
    {"the element %1 is closed by %2", "das Element %1 wird von %2 geschlossen"},
    {"the elements are nested deeper than 1,000 levels",
     "die Elemente sind tiefer als 1000 Ebenen geschachtelt"},
    {"the encoding %1 is not known", "die Kodierung %1 ist nicht bekannt"},
    {"the encoding %1 is not read: ASCII means something else in it",
     "die Kodierung %1 wird nicht gelesen: ASCII bedeutet in ihr etwas anderes"},
    {"the encoding %1 is wrong: a character takes one byte here",
     "die Kodierung %1 ist falsch: ein Zeichen hat hier ein Byte"},
    {"the encoding %1 is wrong: the bytes are %2", "die Kodierung %1 ist falsch: die Bytes sind %2"},
    {"the encoding %1 is wrong: the file begins with the mark of UTF-8",
     "die Kodierung %1 ist falsch: die Datei beginnt mit der Marke von UTF-8"},
    {"the last character is cut off", "das letzte Zeichen ist abgeschnitten"},
    {"the name %1 is not a prefix, ':' and a name", "der Name %1 besteht nicht aus Präfix, ':' und Name"},
    {"the prefix %1 is not declared", "das Präfix %1 ist nicht deklariert"},
    {"the prefix %1 stands for nothing", "das Präfix %1 steht für nichts"},
    {"the reference %1 is not defined", "die Referenz %1 ist nicht definiert"},
    {"the value of the attribute %1 does not end", "der Wert des Attributs %1 endet nicht"},
    {"the value of the attribute %1 holds '<', or it does not end",
     "der Wert des Attributs %1 enthält '<', oder er endet nicht"},
    {"the value of the attribute %1 is not in quotes",
     "der Wert des Attributs %1 steht nicht in Anführungszeichen"},
    {"the element %1 is missing in %2", "das Element %1 fehlt in %2"},
    {"the element %1 holds %2, which is no number", "das Element %1 enthält %2 und keine Zahl"},
    {"the element %1 holds more than three bytes", "das Element %1 enthält mehr als drei Bytes"},
    {"the root element is %1, not %2", "das Wurzelelement ist %1, nicht %2"},
    {"the version of XML is not 1.0", "die XML-Version ist nicht 1.0"},
    {"this is no name of an encoding", "das ist kein Name einer Kodierung"},
    {"this is not XML: it does not begin with '<'", "das ist kein XML: es beginnt nicht mit '<'"},
    // of what a document holds
    {"line %1: %2 is no valid value of %3", "Zeile %1: %2 ist kein gültiger Wert von %3"},
    {"line %1: LandXML has no element %2", "Zeile %1: LandXML hat kein Element %2"},
    {"loaded, with 1 element", "geladen, mit 1 Element"},
    {"loaded, with %1 elements", "geladen, mit %1 Elementen"},
    {"1 more is not listed", "1 weitere ist nicht aufgeführt"},
    {"%1 more are not listed", "%1 weitere sind nicht aufgeführt"},
    {"saved", "gespeichert"},
    {"loading was cancelled", "das Laden wurde abgebrochen"},
    {"the document of this message was closed or read again since",
     "das Dokument dieser Meldung wurde seither geschlossen oder neu gelesen"},
    {"what this message is about is not there any more",
     "das, wovon diese Meldung handelt, gibt es nicht mehr"},
    // of edits
    {"the document can only be read", "das Dokument kann nur gelesen werden"},
    {"%1 cannot be changed in this file", "%1 kann in dieser Datei nicht geändert werden"},
    {"%1 is no value of %2", "%1 ist kein Wert von %2"},
    {"%1 needs a date", "%1 braucht ein Datum"},
    {"%1 cannot be of this type", "%1 kann nicht von diesem Typ sein"},
    {"a LandXML file cannot hold formulas", "eine LandXML-Datei kann keine Formeln enthalten"},
    {"%1 cannot be the name of an attribute", "%1 kann kein Attribut heißen"},
    {"declarations of namespaces cannot be changed",
     "Deklarationen von Namensräumen können nicht geändert werden"},
    {"the attribute %1 is here already", "das Attribut %1 gibt es hier schon"},
    {"only attributes can be removed", "nur Attribute können gelöscht werden"},
    {"%1 cannot be renamed: only attributes and elements with the attribute 'name' can",
     "%1 kann nicht umbenannt werden: das geht nur bei Attributen und bei Elementen mit dem Attribut 'name'"},
    // of files
    {"no such file", "die Datei gibt es nicht"},
    {"no permission", "keine Berechtigung"},
    {"it can only be read there", "dort kann nur gelesen werden"},
    {"the device reports an error", "das Gerät meldet einen Fehler"},
    {"there is no room left", "es ist kein Platz mehr"},
    {"a link leads back to itself", "eine Verknüpfung führt zu sich selbst zurück"},
    {"its name is too long", "der Name ist zu lang"},
    {"too many files are open", "zu viele Dateien sind offen"},
    {"the system reports error %1", "das System meldet den Fehler %1"},
    {"another file has that name", "eine andere Datei heißt so"},
    {"is a folder", "ist ein Ordner"},
    {"is no ordinary file", "ist keine gewöhnliche Datei"},
    {"is not a regular file", "ist keine gewöhnliche Datei"},
    {"is larger than 4 GB", "ist größer als 4 GB"},
    {"is empty", "ist leer"},
    {"is packed and cut off", "ist gepackt und abgeschnitten"},
    {"is packed and damaged", "ist gepackt und beschädigt"},
    {"is packed, and something else follows", "ist gepackt, und danach folgt etwas anderes"},
    {"is packed, and holds more than 4 GB or 1,000 times its size",
     "ist gepackt und enthält mehr als 4 GB oder das 1000-Fache seiner Größe"},
    {"no LandXML document, its root element is %1: shown, but read-only",
     "kein LandXML-Dokument, sein Wurzelelement ist %1: nur zum Lesen"},
    {"the text holds a character that the encoding %1 lacks",
     "der Text enthält ein Zeichen, das in der Kodierung %1 fehlt"},
    {"%1; shown, but read-only", "%1; nur zum Lesen"},
    {"the encoding %1 has several ways to write the same characters",
     "in der Kodierung %1 lassen sich dieselben Zeichen verschieden schreiben"},
    {"unknown LandXML version %1: shown, but read-only", "unbekannte LandXML-Version %1: nur zum Lesen"},
    // of settings, options and pictures
    {"the kept formats cannot be read and the regional ones are used: %1",
     "die gemerkten Formate können nicht gelesen werden, es gelten die regionalen: %1"},
    {"%1; the file is now %2", "%1; die Datei heißt jetzt %2"},
    {"the formats cannot be kept: %1", "die Formate können nicht gemerkt werden: %1"},
    {"the formats of this run are not kept", "die Formate dieses Laufs werden nicht gemerkt"},
    {"the settings cannot be read: %1 is damaged",
     "die Einstellungen können nicht gelesen werden: %1 ist beschädigt"},
    {"the settings cannot be read: %1 is locked or out of reach",
     "die Einstellungen können nicht gelesen werden: %1 ist gesperrt oder nicht erreichbar"},
    {"the settings cannot be read: there is no right to read %1",
     "die Einstellungen können nicht gelesen werden: %1 darf nicht gelesen werden"},
    {"the settings cannot be written: %1 is full, locked or out of reach",
     "die Einstellungen können nicht geschrieben werden: %1 ist voll, gesperrt oder nicht erreichbar"},
    {"the settings cannot be written: there is no right to write to %1",
     "die Einstellungen können nicht geschrieben werden: es fehlt das Recht, in %1 zu schreiben"},
    {"the setting %1 in %2 cannot be understood and is not used",
     "die Einstellung %1 in %2 ist nicht zu verstehen und gilt nicht"},
    {"the locale %1 is not known", "das Gebietsschema %1 ist nicht bekannt"},
    {"--expand: there is no %1", "--expand: %1 gibt es nicht"},
    {"--set takes the path of a member, '=' and a text, not %1",
     "--set braucht den Pfad eines Attributs, '=' und einen Text, nicht %1"},
    {"--set needs --save or --list", "--set braucht --save oder --list"},
    {"--set: there is no %1", "--set: %1 gibt es nicht"},
    {"%1 has been changed by another program meanwhile",
     "%1 ist inzwischen von einem anderen Programm geändert worden"},
    {"the text is not UTF-8", "der Text ist nicht UTF-8"},
    {"control characters cannot be typed", "Steuerzeichen lassen sich nicht tippen"},
    {"the value cannot be edited", "der Wert kann nicht bearbeitet werden"},
    {"%1 is no date, which is written like 2026-03-04", "%1 ist kein Datum, wie 2026-03-04 eines ist"},
    {"%1 is no color, which is written like 75,75,0", "%1 ist keine Farbe, wie 75,75,0 eine ist"},
    {"%1 is neither true nor false", "%1 ist weder true noch false"},
    {"%1 is none of the list", "%1 steht nicht in der Liste"},
    {"%1 is there twice", "%1 ist zweimal angegeben"},
    {"%1; see --help", "%1; siehe --help"},
    {"--size takes width and height in pixels, 800x600 for example, not %1",
     "--size braucht Breite und Höhe in Pixeln, zum Beispiel 800x600, nicht %1"},
    {"%1 takes one of %2, not %3", "%1 ist eines von %2, nicht %3"},
    {"%1 takes a number from 0 to %2, not %3", "%1 ist eine Zahl von 0 bis %2, nicht %3"},
    {"%1 takes no value", "%1 hat keinen Wert"},
    {"%1 needs a value", "%1 braucht einen Wert"},
    {"%1 and %2 exclude each other", "%1 und %2 schließen sich aus"},
    {"there is no option %1", "die Option %1 gibt es nicht"},
    {"the name of the file is empty", "der Name der Datei ist leer"},
    {"only one file can be shown, %1 is too many", "nur eine Datei kann gezeigt werden, %1 ist zu viel"},
    {"no file is named", "keine Datei ist genannt"},
    {"there is no screen, and no file to make a picture of",
     "es gibt keinen Bildschirm, und keine Datei für ein Bild"},
    {"the picture %1 cannot be written", "das Bild %1 kann nicht geschrieben werden"},
    {"the picture %1 cannot be written: its name ends in none of %2",
     "das Bild %1 kann nicht geschrieben werden: der Name endet auf keines von %2"},
    {"there is no screen; the picture of the window is %1",
     "es gibt keinen Bildschirm; das Bild des Fensters ist %1"},
    {"another file has that name; the picture is %1", "eine andere Datei heißt so; das Bild ist %1"},
    {"standard output cannot be written", "die Standardausgabe kann nicht geschrieben werden"},
};

} // namespace

bool SpeaksGerman() {
    try {
        return GetLanguage().column != LanguageChoice::English;
    } catch (const Error&) {
        return false;
    }
}

std::string Say(const Message& message) {
    const auto* found = std::find_if(std::begin(Translations), std::end(Translations),
                                     [&](const Translation& row) { return row.english == message.sentence; });
    const bool isTranslated = found != std::end(Translations) && SpeaksGerman();
    return isTranslated ? Message(found->german, message.pieces).Text() : message.Text();
}

std::string SayWithPlace(const XmlError& error) {
    const XmlPlace place = error.Place();
    return Say({"line %1, position %2: %3",
                {std::to_string(place.line), std::to_string(place.position), Say(error.Details())}});
}

} // namespace korvel::inspector
