#pragma once

#include "korvel/window/core/set_display.h"

#include <memory>

class QWidget;

namespace korvel::internal {
class EmbedFrame;
}

namespace korvel::qt {

/// Shows the windows on a real desktop, with Qt 6 Widgets.
///
///     QApplication application(argc, argv);
///     qt::QtDisplay display;             // after the application, gone before it
///     SetDisplay(&display);              // windows that exist already are shown now
///     CWnd frame;
///     frame.CreateEx(0, "KorvelFrame", "Objects", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {100, 100, 500, 400},
///                    nullptr, 0);
///     return application.exec();         // closing the frame sends it WM_CLOSE
///
/// Made and used on the thread of the application, as the only display in force. Destroying it puts the
/// default display in force again, and the windows stay; no other thread may send or post at that moment.
/// The operations of `IDisplay` are called by the library, not by the host.
class KORVEL_API QtDisplay final : public IDisplay {
public:
    QtDisplay();
    ~QtDisplay() override;

    /// The widget that shows a window, or null. It belongs to the display: do not delete it, and parent
    /// nothing to it.
    QWidget* WidgetOf(HWND window) const;

    void Created(HWND window) override;
    void Destroyed(HWND window) override;
    void Changed(HWND window, Aspects aspects) override;
    void Invalidate(HWND window, const CRect& rect) override;
    void RowsChanged(HWND list, int first, int removed, int inserted) override;
    void Focus(HWND window) override;
    bool LeaveByTab(HWND topLevel, bool previous) override;
    void Capture(HWND window) override;
    void Wake() override;
    void Alarm(std::optional<std::chrono::milliseconds> when) override;
    std::chrono::milliseconds Now() override;
    void RunUntil(HWND modal, const std::function<bool()>& done) override;
    int MessageBox(HWND owner, const CString& text, const CString& caption, UINT type) override;
    unsigned TrackMenu(HWND owner, CPoint screen, const std::vector<MenuEntry>& entries) override;
    std::optional<COLORREF> ChooseColor(HWND owner, COLORREF color) override;
    std::optional<CString> ChooseFile(HWND owner, const FileQuery& query) override;
    FolderAnswer ChooseFolder(HWND owner, const FolderQuery& query) override;
    int OpenPath(HWND owner, const CString& path, OpenAs as) override;
    int TextWidth(const CString& text) override;
    CPoint ToScreen(HWND window, CPoint client) override;
    int KeyState(UINT key) override;
    CPoint Pointer() override;
    COLORREF SysColor(int index) override;
    int Metric(int index) override;
    std::vector<CRect> Screens() override;
    void SetCursor(int cursor) override;
    ClipboardAnswer SetClipboardText(const CString& text) override;
    std::optional<CString> ClipboardText() override;
    std::optional<Image> LoadPicture(const CString& path, CSize room) override;

private:
    friend class internal::EmbedFrame;
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace korvel::qt
