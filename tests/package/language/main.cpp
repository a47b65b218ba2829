// Writes the words on the last button of a dialog of the library, in the language that is named first, from
// the folder that is named second.

#include <filesystem>
#include <iostream>
#include <korvel/values/language.h>
#include <korvel/window/app/app.h>
#include <korvel/window/app/find_resource.h>

using namespace korvel;

int main(int count, char** arguments) {
    SetLanguageForThisRun(count > 1 ? arguments[1] : "English");
    if (count > 2)
        std::filesystem::current_path(arguments[2]);
    constexpr UINT EditCodeDialog = 15059;
    const ModuleStateGuard library;
    const DialogTemplate* dialog = FindDialogTemplate(EditCodeDialog);
    std::cout << (dialog ? dialog->items.back().text : "no dialog") << '\n';
    return 0;
}
