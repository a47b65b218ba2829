#pragma once

#include "korvel/window/core/display.h"

class QWidget;

/// The boxes, menus and choosers of the desktop. Each returns when the user has answered; `owner` may be
/// null.
namespace korvel::internal {

/// The ID* of the button; that of Escape when the box is closed without one.
int AskMessage(QWidget* owner, const CString& text, const CString& caption, UINT type);
/// The menu closes without a choice when the widget that it is for (may be null) disappears.
unsigned AskMenu(QWidget* owner, QWidget* shownFor, CPoint screen, const std::vector<MenuEntry>& entries);
std::optional<COLORREF> AskColor(QWidget* owner, COLORREF color);
std::optional<CString> AskFile(QWidget* owner, const FileQuery& query);
FolderAnswer AskFolder(QWidget* owner, const FolderQuery& query);

} // namespace korvel::internal
