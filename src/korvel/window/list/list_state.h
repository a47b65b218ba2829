#pragma once

#include "korvel/window/base/image_list.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_record.h"
#include "korvel/window/list/header_ctrl.h"
#include "korvel/window/list/list_columns.h"
#include "korvel/window/list/list_types.h"
#include "korvel/window/list/row_blocks.h"
#include "korvel/window/list/type_ahead.h"

#include <memory>

namespace korvel::internal {

constexpr int NoRow = -1;

struct FollowedRow;
class LeavingRows;

/// A mouse button that was pressed over the list and is still down.
struct ListPress {
    UINT button = 0; // MK_LBUTTON, MK_RBUTTON; 0: none
    CPoint point;
    int row = NoRow;
    int column = 0;
    bool selectsAtRelease = false; // a press on one of several selected rows: they might be dragged
    bool editsAtRelease = false;   // a second click on the label of the one selected row
};

enum class LabelEditEnd { Take, Cancel };

class ListState;

/// The edit over a label, if one is open. It sets its own functions, so that what moves and removes rows
/// need not know it.
struct ListLabelEdit {
    HWND window = nullptr;
    int row = NoRow;
    bool isEnding = false; // the edit loses the focus while it ends
    bool (*end)(ListState&, LabelEditEnd) = nullptr;
    void (*follow)(ListState&) = nullptr; // called after cells have moved
};

/// The state of a report list. What it does is declared in the list_*.h headers, one concern each; their
/// functions expect rows and columns that exist unless they say otherwise. A notice may change or even
/// destroy the list: look again after each.
class ListState : public ControlState {
public:
    explicit ListState(WindowRecord& window) : record(window) {}

    view::Kind Kind() const override { return view::Kind::List; }
    view::ScrollView Scroll() const override;
    CRect ClientInsets(CSize insideBorder) const override;
    void Scrolled(int x, int row) override;
    CString Tip(CPoint point) override;
    void PaintBegins() override { areRowsInvalid = false; }

    HWND Handle() const { return record.handle; }
    bool HasStyle(UINT bits) const { return (record.style & bits) != 0; }
    bool HasExtendedStyle(UINT bits) const { return (extendedStyle & bits) != 0; }

    /// LVN_ENDLABELEDIT is sent while the edit still exists; with a text, a return value other than 0 gives
    /// it to the row. The result is that of Take: false when the text was not accepted, and while the edit
    /// ends already; true without an edit.
    bool EndLabelEdit(LabelEditEnd end) { return !labelEdit.end || labelEdit.end(*this, end); }

    WindowRecord& record;
    RowBlocks rows;
    ListColumns columns;
    int focusRow = NoRow;
    int markRow = NoRow;            // where a range selection begins
    LeavingRows* leaving = nullptr; // the removal that goes on, if one does
    FollowedRow* followedRows = nullptr;
    bool areCellsRead = false; // by somebody who follows the rows

    int topRow = 0;
    int scrollX = 0;             // pixels
    CPoint trackedScroll;        // where the scroll bars are drawn to: x in pixels, y in rows
    view::ScrollView toldScroll; // what the display was last notified of
    CSize toldClientSize;        // the last one sent with WM_SIZE
    bool isTellingSize = false;
    bool areRowsInvalid = false;                             // all below the header waits to be painted
    int wheelRest = 0;                                       // how far the wheel has turned short of a row
    std::shared_ptr<const std::function<void()>> cellsMoved; // may be replaced while it is called

    UINT extendedStyle = 0;
    const CImageList* images = nullptr;
    std::shared_ptr<const ListTextSource> textSource; // may be replaced while it is asked

    HWND header = nullptr;
    CRect headerPlace;                         // where it was moved to; without height while it is hidden
    std::unique_ptr<CHeaderCtrl> headerObject; // made when it is first asked for

    ListPress press;
    bool isPressRefused = false; // the last one did not bring the focus
    int slowClickRow = NoRow;    // whose label is edited when the timer of a slow click ends
    TypeAhead typeAhead;
    ListLabelEdit labelEdit;
};

} // namespace korvel::internal
