// Run once by set-up and installation: chooses the language of the machine.

#include "setup/machine_language.h"

#include <exception>
#include <iostream>

int main() {
    try {
        korvel::inspector::InstallMachineLanguage();
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
