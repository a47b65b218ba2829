#pragma once

#include "korvel/window/core/window_record.h"
#include "korvel/window/list/list_columns.h"
#include "korvel/window/list/list_ctrl.h"
#include "korvel/window/list/row_blocks.h"
#include "korvel/window/list/type_ahead.h"

#include <memory>

namespace korvel::internal {

constexpr int NoRow = -1;

struct LeavingRows;

/// A mouse button that went down over the list and is still held.
struct ListPress {
    UINT button = 0; // MK_LBUTTON, MK_RBUTTON; 0: none
    CPoint point;
    int row = NoRow;
    int column = 0;
    bool selectsAtRelease = false; // a press on one of several selected rows: they might be dragged
    bool editsAtRelease = false;   // a second click on the label of the one selected row
};

struct ListLabelEdit {
    HWND window = nullptr;
    int row = NoRow;
    bool isEnding = false; // the edit loses the focus while it ends
};

/// The state of a report list. What it does stands in the list_*.h headers, one concern each; their
/// functions expect rows and columns that exist unless they say otherwise. A notification may change or
/// even destroy the list: what comes after one looks again.
class ListState : public ControlState {
public:
    explicit ListState(WindowRecord& window) : record(window) {}

    view::Kind Kind() const override { return view::Kind::List; }
    view::ScrollView Scroll() const override;
    CRect ClientInsets(CSize insideBorder) const override;
    void Scrolled(int x, int row) override;

    HWND Handle() const { return record.handle; }
    bool HasStyle(UINT bits) const { return (record.style & bits) != 0; }
    bool HasExtendedStyle(UINT bits) const { return (extendedStyle & bits) != 0; }

    WindowRecord& record;
    RowBlocks rows;
    ListColumns columns;
    int focusRow = NoRow;
    int markRow = NoRow;            // where a range selection begins
    LeavingRows* leaving = nullptr; // the removal that goes on, if one does

    int topRow = 0;
    int scrollX = 0;             // pixels
    CPoint trackedScroll;        // where the scroll bars are drawn to: x in pixels, y in rows
    view::ScrollView toldScroll; // what the display knows
    CSize toldClientSize;        // what WM_SIZE has told
    bool isTellingSize = false;
    int wheelRest = 0; // what the wheel has turned short of a row

    UINT extendedStyle = 0;
    const CImageList* images = nullptr;
    std::shared_ptr<const CListCtrl::TextSource> textSource; // may be replaced while it is asked

    HWND header = nullptr;
    CRect headerPlace;                         // where it was moved to; without height while it is hidden
    std::unique_ptr<CHeaderCtrl> headerObject; // made when it is first asked for

    ListPress press;
    TypeAhead typeAhead;
    ListLabelEdit labelEdit;
};

} // namespace korvel::internal
