#pragma once

#include "korvel/window/core/display.h"

class QWidget;

/// The boxes, menus and choosers of the desktop. Each waits for the answer; `owner` may be null.
namespace korvel::qt {

/// The ID* of the button; a box that is closed without one answers what Escape does.
int AskMessage(QWidget* owner, const CString& text, const CString& caption, UINT type);
unsigned AskMenu(QWidget* owner, CPoint screen, const std::vector<MenuEntry>& entries);
std::optional<COLORREF> AskColor(QWidget* owner, COLORREF color);
std::optional<CString> AskFile(QWidget* owner, const FileQuery& query);
std::optional<CString> AskFolder(QWidget* owner, const CString& path);

} // namespace korvel::qt
