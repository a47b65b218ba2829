#include "texts/help_text.h"

#include "texts/messages.h"

namespace korvel::inspector {

namespace {

constexpr const char* EnglishHelp = R"(Usage: inspector [FILE] [OPTION...]

Shows a LandXML file as a tree of objects with typed attributes.

  --list                    write the tree to standard output, one member a line
  --screenshot FILE         write a picture of the window, as .png, .jpg or .bmp; a file that is another's stays,
                            and the picture takes the next free name
  --size WxH                size of that picture in pixels (1000x700), or of the one that is made where there is no
                            screen; lists and windows on a screen have none
  --expand PATH             open the groups along a path of member names, separated by '/'; can be repeated; for a
                            list, which has all groups open, only a check that they are there
  --expand-all              open all groups
  --set PATH=TEXT           write a text into the member of that path, as typed into its cell and ended with
                            Return; can be repeated; dates as 2026-03-04, flags as true or false, colors as
                            75,75,0 (red, green, blue); a text that is refused ends the run, and nothing is saved
  --save [FILE]             write the document back, or into that file: changed values only are written anew
  --encoding NAME           read the file in this encoding, where it declares a wrong one
  --locale NAME             write numbers and dates as in de-DE, en-US, ...
  --language NAME           English or German, for this run
  --station-kind KIND       road, railway, or auto: railway where an alignment has cant
  --help, --version         write this text, or the version

These are kept for later runs, after --list, --save and --screenshot only with --keep:

  --angle-unit UNIT         deg, rad, gon, or file (at first): as in the file that is shown
  --digits NUMBER           digits after the decimal separator of numbers, angles and stations
  --grouping SIZES          digits of a group: none, 3 (123.456.789), or 3,2 (12.34.56.789)

  --keep                    keep them also after --list, --save and --screenshot

Names of members are those of LandXML in every language; the numbers in a text are called northing, easting,
station and so on. A name may end with:

  [ft], [acre], ...         the unit of the value, as the file names it
  [invalid]                 the value is not what LandXML allows here, and is shown as the file has it
  [foreign]                 the attribute or element is of another namespace, and no part of LandXML

Exit status: 0 done, 1 failed, 2 a file, an option or a value that cannot be taken.
)";

constexpr const char* GermanHelp = R"(Aufruf: inspector [DATEI] [OPTION...]

Zeigt eine LandXML-Datei als Baum von Objekten mit typisierten Attributen.

  --list                    den Baum in die Standardausgabe schreiben, ein Attribut je Zeile
  --screenshot DATEI        ein Bild des Fensters schreiben, als .png, .jpg oder .bmp; eine fremde Datei bleibt,
                            und das Bild bekommt den nächsten freien Namen
  --size BxH                Größe dieses Bildes in Pixeln (1000x700), auch des Bildes, das ohne Bildschirm
                            entsteht; Listen und Fenster auf einem Bildschirm haben keine
  --expand PFAD             die Gruppen auf einem Pfad von Namen öffnen, die '/' trennt; mehrmals möglich; bei einer
                            Liste, in der alle offen sind, wird nur geprüft, ob es sie gibt
  --expand-all              alle Gruppen öffnen
  --set PFAD=TEXT           einen Text in das Attribut dieses Pfads schreiben, wie in seine Zelle getippt und mit
                            der Eingabetaste beendet; mehrmals möglich; Daten wie 2026-03-04, ja/nein als true oder
                            false, Farben wie 75,75,0 (Rot, Grün, Blau); ein Text, der abgelehnt wird, beendet den
                            Lauf, und nichts wird gespeichert
  --save [DATEI]            das Dokument zurückschreiben oder in diese Datei: nur geänderte Werte werden neu
                            geschrieben
  --encoding NAME           die Datei in dieser Kodierung lesen, wenn sie eine falsche angibt
  --locale NAME             Zahlen und Daten schreiben wie in de-DE, en-US, ...
  --language NAME           English oder German, für diesen Lauf
  --station-kind ART        road (Straße), railway (Bahn) oder auto: Bahn, wo eine Achse Überhöhung hat
  --help, --version         diesen Text oder die Version schreiben

Diese werden für spätere Läufe gemerkt, nach --list, --save und --screenshot nur mit --keep:

  --angle-unit EINHEIT      deg, rad, gon oder file (anfangs): wie in der Datei, die gezeigt wird
  --digits ZAHL             Stellen nach dem Dezimaltrennzeichen von Zahlen, Winkeln und Stationen
  --grouping GRÖSSEN        Ziffern einer Gruppe: none (keine), 3 (123.456.789) oder 3,2 (12.34.56.789)

  --keep                    sie auch nach --list, --save und --screenshot merken

Die Namen der Attribute sind in jeder Sprache die von LandXML; die Zahlen in einem Text heißen northing
(Hochwert), easting (Rechtswert), station und so weiter. Am Ende eines Namens kann stehen:

  [ft], [acre], ...         die Einheit des Werts, wie die Datei sie nennt
  [invalid]                 der Wert ist hier in LandXML nicht erlaubt und wird gezeigt, wie er in der Datei steht
  [foreign]                 das Attribut oder Element ist aus einem anderen Namensraum und kein Teil von LandXML

Status am Ende: 0 getan, 1 misslungen, 2 eine Datei, eine Option oder ein Wert ist nicht anzunehmen.
)";

} // namespace

const char* HelpText() {
    return SpeaksGerman() ? GermanHelp : EnglishHelp;
}

} // namespace korvel::inspector
