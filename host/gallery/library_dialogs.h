#pragma once

#include "korvel/window/base/types.h"

#include <functional>
#include <string>

/// The dialogs of the library with something in them, each shown until it is closed.
namespace korvel::gallery {

void ShowCodeList();
void ShowCodeListToPick();
void ShowCodePair();
void ShowText();
void ShowColorWithTransparency();
/// A press on OK says that the name is missing.
void ShowNewAttribute();
void ShowFileChooser(const std::string& file);
void ShowFolderChooser(const std::string& folder);
void ShowQuestion();

enum class ProgressLook { Position, Marquee };
/// It has no box to close it: it stays while `act` runs.
void ShowProgress(ProgressLook look, const std::function<void(HWND)>& act);

} // namespace korvel::gallery
