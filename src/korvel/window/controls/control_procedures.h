#pragma once

#include "korvel/window/core/window_record.h"

/// The procedures of the control classes: what a window of the class does by default.
namespace korvel::internal {

LRESULT ListProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT HeaderProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT EditProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT ButtonProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT StaticProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace korvel::internal
