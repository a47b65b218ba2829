#pragma once

namespace korvel::internal {

/// The words of the dialogs in one language, in the library's code page.
struct DialogWords {
    const char* add;
    const char* edit;
    const char* remove;
    const char* moveUp;
    const char* moveDown;
    const char* code;
    const char* newAttribute;
    const char* name;
    const char* type;
    const char* value;
    const char* writeProtected;
    const char* processing;
    const char* ok;
    const char* cancel;
};

/// In the library itself.
inline constexpr DialogWords GermanWords = {.add = "Hinzuf\xFCgen",
                                            .edit = "Bearbeiten",
                                            .remove = "Entfernen",
                                            .moveUp = "Nach oben",
                                            .moveDown = "Nach unten",
                                            .code = "Krefail Code:",
                                            .newAttribute = "Neues Attribut",
                                            .name = "Name:",
                                            .type = "Typ:",
                                            .value = "Wert:",
                                            .writeProtected = "Schreibgesch\xFCtzt",
                                            .processing = "Verarbeitung l\xE4uft...",
                                            .ok = "OK",
                                            .cancel = "Abbrechen"};

/// In the language module.
inline constexpr DialogWords EnglishWords = {.add = "Add",
                                             .edit = "Edit",
                                             .remove = "Remove",
                                             .moveUp = "Move up",
                                             .moveDown = "Move down",
                                             .code = "Krefail code:",
                                             .newAttribute = "New attribute",
                                             .name = "Name:",
                                             .type = "Type:",
                                             .value = "Value:",
                                             .writeProtected = "Write protected",
                                             .processing = "Processing...",
                                             .ok = "OK",
                                             .cancel = "Cancel"};

} // namespace korvel::internal
