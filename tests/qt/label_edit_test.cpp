#include "korvel/window/controls/edit.h"
#include "korvel/window/list/list_ctrl.h"
#include "qt/users.h"
#include "support/table.h"

#include <QTest>

namespace korvel::test {

namespace {

class AcceptingFrame : public CWnd {
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == LVN_ENDLABELEDIT)
            return reinterpret_cast<const NMLVDISPINFO*>(lParam)->pszText != nullptr;
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

// Time passes as it does for a user, and the keys go where the desktop has the focus.
TEST(LabelEditOnTheDesktop, ASlowSecondClickOpensAFieldForTheName) {
    QtUser user;
    AcceptingFrame frame;
    frame.CreateEx(0, "KorvelFrame", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {50, 50, 450, 350}, nullptr, 0);
    CListCtrl list;
    list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL | LVS_EDITLABELS, {0, 0, 300, 200}, &frame,
                1);
    list.InsertColumn(0, "Name", 150);
    list.InsertColumn(1, "Value", 100);
    list.InsertItem(0, "one");
    CEdit other;
    other.CreateEx(0, "EDIT", "", WS_CHILD | WS_VISIBLE, {310, 0, 390, 24}, &frame, 2);
    CRect row;
    list.GetItemRect(0, &row);
    const CPoint name{20, row.top + 5};
    user.Click(list.m_hWnd, name);
    for (const auto& [border, click, isEdited] :
         Table<CPoint, bool>{{"the value", {200, row.top + 5}, false}, {"the name", name, true}}) {
        user.Click(list.m_hWnd, click);
        QTest::qWait(700);
        EXPECT_EQ(list.GetEditControl() != nullptr, isEdited) << border;
    }
    user.Key('X', "x");
    user.Key(VK_RETURN, "\r");
    EXPECT_EQ(list.GetItemText(0, 0), "x");
    EXPECT_EQ(GetFocus(), list.m_hWnd);
    user.Click(other.m_hWnd, {5, 5});
    user.Click(list.m_hWnd, name); // brings the focus
    QTest::qWait(700);
    EXPECT_EQ(list.GetEditControl(), nullptr);
}

} // namespace

} // namespace korvel::test
