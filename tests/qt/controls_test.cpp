#include "korvel/platform/calendar.h"
#include "korvel/window/base/color.h"
#include "korvel/window/controls/combo_box.h"
#include "korvel/window/controls/date_time_ctrl.h"
#include "korvel/window/controls/edit.h"
#include "korvel/window/controls/progress_ctrl.h"
#include "korvel/window/controls/slider_ctrl.h"
#include "korvel/window/controls/tab_ctrl.h"
#include "qt/users.h"
#include "support/control_fixture.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSlider>
#include <QStyleOptionComboBox>
#include <QTabBar>

namespace korvel::test {

namespace {

// Keeps the notices of bars and the keys that are pressed in it and below, too.
class Listener : public NoticeParent {
public:
    std::vector<WPARAM> keys;
    bool PreTranslateMessage(MSG& message) override {
        if (message.message == WM_KEYDOWN)
            keys.push_back(message.wParam);
        return false;
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_HSCROLL || message == WM_VSCROLL)
            codes.push_back(LOWORD(wParam));
        return NoticeParent::WindowProc(message, wParam, lParam);
    }
};

class Controls : public DesktopTest<Listener> {
protected:
    void Press(UINT key, const CString& characters = {}) { m_user.Key(key, characters); }
    void MakeBox(UINT style) {
        m_box.DestroyWindow();
        m_box.Create(WS_CHILD | WS_VISIBLE | style, {10, 10, 150, 130}, &m_frame, 1);
        for (const char* text : {"one", "two", "three"})
            m_box.AddString(text);
        m_box.SetCurSel(0);
        Activate();
        m_box.SetFocus();
        m_frame.Take();
    }

    CComboBox m_box;
};

TEST_F(Controls, TheListOfAComboBoxIsQtsAndTellsTheSame) {
    using Keys = std::vector<Qt::Key>;
    const Codes taken{CBN_SELCHANGE, CBN_SELENDOK, CBN_CLOSEUP};
    const Codes left{CBN_SELCHANGE, CBN_SELENDCANCEL, CBN_CLOSEUP};
    const auto opened = [](const Codes& rest) {
        Codes codes{CBN_DROPDOWN};
        codes.insert(codes.end(), rest.begin(), rest.end());
        return codes;
    };
    for (const UINT style : {CBS_DROPDOWN, CBS_DROPDOWNLIST})
        for (const auto& [border, first, keys, current, codes] : Table<int, Keys, int, Codes>{
                 {"taken", 0, {Qt::Key_Down, Qt::Key_Return}, 1, taken},
                 {"closed by F4", 0, {Qt::Key_Down, Qt::Key_F4}, 1, taken},
                 {"left", 0, {Qt::Key_Down, Qt::Key_Escape}, 0, left},
                 {"nothing chosen", -1, {Qt::Key_Return}, -1, {CBN_SELENDOK, CBN_CLOSEUP}},
                 {"closed at once", 1, {Qt::Key_F4}, 1, {CBN_SELENDOK, CBN_CLOSEUP}}}) {
            SCOPED_TRACE(border);
            MakeBox(style);
            m_box.SetCurSel(first);
            auto& box = WidgetOf<QComboBox>(m_box);
            const HWND focus = GetFocus();
            Press(VK_F4);
            ASSERT_TRUE(QTest::qWaitFor([&] { return box.view()->isVisible(); }));
            for (const Qt::Key key : keys) {
                QKeyEvent toCome(QEvent::ShortcutOverride, key, Qt::NoModifier);
                QApplication::sendEvent(box.view(), &toCome);
                EXPECT_TRUE(m_box.GetDroppedState()) << "until the key itself comes";
                QTest::keyClick(box.view(), key);
            }
            EXPECT_FALSE(m_box.GetDroppedState());
            QApplication::processEvents();
            EXPECT_EQ(m_frame.Take(), opened(codes));
            EXPECT_EQ(m_box.GetCurSel(), current);
            EXPECT_EQ(box.currentIndex(), current);
            EXPECT_FALSE(box.view()->isVisible());
            EXPECT_EQ(GetFocus(), focus);
        }
}

TEST_F(Controls, TheOpenListShowsWhatTheWindowHasAndTypesIntoItsField) {
    MakeBox(CBS_DROPDOWN);
    auto& box = WidgetOf<QComboBox>(m_box);
    Press('X', "x");
    Press(VK_F4);
    ASSERT_TRUE(QTest::qWaitFor([&] { return box.view()->isVisible(); }));
    const auto marked = [&] {
        const QModelIndexList rows = box.view()->selectionModel()->selectedIndexes();
        return rows.isEmpty() ? -1 : rows.front().row();
    };
    for (const auto& [border, key, text, row, shown] :
         Table<Qt::Key, const char*, int, const char*>{{"a letter", Qt::Key_Y, "y", -1, "xy"},
                                                       {"an arrow", Qt::Key_Down, "", 0, "one"},
                                                       {"a page", Qt::Key_PageDown, "", 2, "three"},
                                                       {"over what is selected", Qt::Key_Z, "z", -1, "z"},
                                                       {"one that nobody wants", Qt::Key_F2, "", -1, "z"},
                                                       {"Return keeps it", Qt::Key_Return, "\r", -1, "z"}}) {
        SCOPED_TRACE(border);
        QTest::sendKeyEvent(QTest::Click, box.view(), key, QString::fromLatin1(text), Qt::NoModifier);
        EXPECT_EQ(marked(), row);
        EXPECT_EQ(m_box.GetWindowTextA(), shown);
    }
    EXPECT_FALSE(m_box.GetDroppedState());
    EXPECT_EQ(m_frame.keys, (std::vector<WPARAM>{'X', VK_F4, 'Y', VK_DOWN, VK_NEXT, 'Z', VK_F2, VK_RETURN}));
    Activate();
    Press(VK_F4);
    ASSERT_TRUE(QTest::qWaitFor([&] { return box.view()->isVisible(); }));
    m_frame.Take();
    box.view()->setCurrentIndex(box.model()->index(1, 0)); // as the pointer does
    QTest::keyClick(box.view(), Qt::Key_Return);
    EXPECT_EQ(m_box.GetWindowTextA(), "two") << "what is marked";
    EXPECT_EQ(m_frame.Take(), (Codes{CBN_SELENDOK, CBN_CLOSEUP, CBN_SELCHANGE}));
}

TEST_F(Controls, AComboBoxOpensAndClosesWithItsWindow) {
    MakeBox(CBS_DROPDOWNLIST);
    auto& box = WidgetOf<QComboBox>(m_box);
    m_user.Click(m_box.m_hWnd, {120, 8});
    EXPECT_TRUE(QTest::qWaitFor([&] { return box.view()->isVisible(); }));
    EXPECT_EQ(m_frame.Take(), Codes{CBN_DROPDOWN});
    m_box.ShowDropDown(false);
    EXPECT_FALSE(box.view()->isVisible());
    m_box.ResetContent();
    EXPECT_EQ(box.count(), 0);
    m_box.ShowDropDown();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !m_box.GetDroppedState(); })) << "Qt shows no empty list";
    m_box.ShowDropDown();
    m_box.DestroyWindow(); // while its report of that is under way
    QApplication::processEvents();
}

TEST_F(Controls, AListBelowItsFieldIsClicked) {
    MakeBox(CBS_SIMPLE);
    auto& list = WidgetOf<QListView>(m_box);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualRect(list.model()->index(2, 0)).center());
    EXPECT_EQ(m_box.GetWindowTextA(), "three");
}

TEST_F(Controls, BarAndSliderShowTheirRange) {
    CProgressCtrl bar;
    bar.Create(WS_CHILD | WS_VISIBLE, {10, 10, 150, 30}, &m_frame, 1);
    bar.SetRange32(-2000000000, 2000000000);
    bar.SetPos(0);
    auto& shown = WidgetOf<QProgressBar>(bar);
    const auto isInTheMiddle = [&] { return shown.maximum() > 0 && shown.value() * 2 == shown.maximum(); };
    EXPECT_TRUE(QTest::qWaitFor(isInTheMiddle));
    bar.ModifyStyle(0, PBS_MARQUEE);
    bar.SetMarquee(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.maximum() == 0; }));
    bar.ModifyStyle(PBS_MARQUEE, 0);
    EXPECT_TRUE(QTest::qWaitFor(isInTheMiddle));

    CSliderCtrl slider;
    slider.Create(WS_CHILD | WS_VISIBLE | TBS_NOTICKS, {10, 40, 150, 70}, &m_frame, 2);
    slider.SetRange(10, 30);
    slider.SetPos(20);
    auto& widget = WidgetOf<QSlider>(slider);
    EXPECT_EQ(widget.value(), 20);
    EXPECT_EQ(widget.tickInterval(), 20) << "a mark at each end";
    EXPECT_EQ(m_frame.Take(), Codes()) << "a program tells nothing";
    QTest::mouseClick(&widget, Qt::LeftButton, {}, {4, widget.height() / 2}); // beside the thumb
    EXPECT_EQ(m_frame.Take(), (Codes{TB_PAGEUP, TB_ENDTRACK}));
    EXPECT_EQ(slider.GetPos(), 16);
    EXPECT_EQ(widget.value(), 16);
    slider.SetPos(20);
    slider.SetFocus();
    Press(VK_DOWN);
    EXPECT_EQ(widget.value(), 21);
    EXPECT_EQ(m_frame.Take(), (Codes{TB_LINEDOWN, TB_ENDTRACK}));
    QTest::mousePress(&widget, Qt::LeftButton, {}, widget.rect().center());
    widget.setValue(25); // as dragging does
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, widget.rect().center());
    EXPECT_EQ(slider.GetPos(), widget.value());
    const Codes told = m_frame.Take();
    ASSERT_GE(told.size(), 3u);
    EXPECT_EQ(Codes(told.end() - 2, told.end()), (Codes{TB_THUMBPOSITION, TB_ENDTRACK}));
}

TEST_F(Controls, WhatIsSwitchedOffTakesNoInputFromQt) {
    for (const auto& [name, style] : Table<UINT>{{"Button", BS_PUSHBUTTON},
                                                 {"Button", BS_GROUPBOX},
                                                 {"Static", 0},
                                                 {"Edit", 0},
                                                 {"Edit", ES_MULTILINE},
                                                 {"ComboBox", CBS_SIMPLE},
                                                 {"ComboBox", CBS_DROPDOWN},
                                                 {"msctls_progress32", 0},
                                                 {"msctls_trackbar32", 0},
                                                 {"SysDateTimePick32", 0},
                                                 {"SysTabControl32", 0}}) {
        CWnd control;
        control.CreateEx(0, name, "", WS_CHILD | WS_VISIBLE | style, {10, 10, 150, 60}, &m_frame, 1);
        const QWidget* widget = m_user.Widget(control.m_hWnd);
        for (const bool isOn : {false, true}) {
            control.EnableWindow(isOn);
            EXPECT_EQ(widget->isEnabled(), isOn) << name << " " << style;
        }
    }
}

TEST_F(Controls, ADateIsChangedInItsWidget) {
    CDateTimeCtrl date;
    date.Create(WS_CHILD | WS_VISIBLE | DTS_SHOWNONE, {10, 10, 200, 36}, &m_frame, 1);
    date.SetFormat("yyyy-MM-dd 'at' h");
    date.SetTime({2026, 3, 0, 4, 5});
    auto& edit = WidgetOf<QDateTimeEdit>(date);
    EXPECT_EQ(edit.text(), QStringLiteral("2026-03-04 at 5"));
    EXPECT_EQ(m_frame.Take(), Codes());
    date.SetFocus();
    edit.setSelectedSection(QDateTimeEdit::DaySection);
    Press(VK_UP);
    SYSTEMTIME time;
    date.GetTime(time);
    EXPECT_EQ(time, (SYSTEMTIME{2026, 3, 4, 5, 5}));
    EXPECT_EQ(m_frame.Take(), Codes{DTN_DATETIMECHANGE});

    const auto dayOf = [&] {
        date.GetTime(time);
        return time.wDay;
    };
    edit.setSelectedSection(QDateTimeEdit::HourSection);
    for (int step = 0; step < 19; ++step)
        Press(VK_UP);
    EXPECT_EQ(edit.text(), QStringLiteral("2026-03-05 at 0")) << "round, in its part";
    m_frame.Take();
    QWidget* calendar = edit.calendarWidget()->window();
    const Codes changedOnce{DTN_DROPDOWN, DTN_DATETIMECHANGE, DTN_CLOSEUP};
    const Codes changedTwice{DTN_DROPDOWN, DTN_DATETIMECHANGE, DTN_DATETIMECHANGE, DTN_CLOSEUP};
    for (const auto& [border, key, modifiers, day, codes] : Table<Qt::Key, Qt::KeyboardModifiers, int, Codes>{
             {"Return", Qt::Key_Return, {}, 6, changedOnce},
             {"F4", Qt::Key_F4, {}, 7, changedOnce},
             {"Alt+Up", Qt::Key_Up, Qt::AltModifier, 8, changedOnce},
             {"Escape brings the date back", Qt::Key_Escape, {}, 8, changedTwice}}) {
        SCOPED_TRACE(border);
        Activate();
        Press(VK_F4);
        ASSERT_TRUE(QTest::qWaitFor([&] { return calendar->isVisible(); }));
        QTest::keyClick(calendar->focusWidget(), Qt::Key_Right);
        QTest::keyClick(calendar->focusWidget(), key, modifiers);
        EXPECT_FALSE(calendar->isVisible());
        EXPECT_EQ(dayOf(), day);
        EXPECT_EQ(m_frame.Take(), codes);
    }

    Activate();
    Press(VK_F4);
    EXPECT_TRUE(QTest::qWaitFor([&] { return calendar->isVisible(); }));
    date.CloseMonthCal();
    EXPECT_FALSE(calendar->isVisible());
    EXPECT_EQ(m_frame.Take(), (Codes{DTN_DROPDOWN, DTN_CLOSEUP}));
    EXPECT_EQ(GetFocus(), date.m_hWnd);

    auto* box = edit.findChild<QCheckBox*>();
    ASSERT_NE(box, nullptr);
    QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
    EXPECT_EQ(date.GetTime(time), GDT_NONE);
    Activate();
    date.SetFocus();
    Press(VK_SPACE, " ");
    EXPECT_EQ(date.GetTime(time), GDT_VALID);
    EXPECT_TRUE(box->isChecked());
}

TEST_F(Controls, ATabThatIsRefusedIsNotShown) {
    CTabCtrl tabs;
    tabs.Create(WS_CHILD | WS_VISIBLE, {10, 10, 300, 200}, &m_frame, 1);
    for (const char* text : {"one", "two"})
        tabs.InsertItem(9, text);
    auto& bar = WidgetOf<QTabBar>(tabs);
    const Codes taken{TCN_SELCHANGING, TCN_SELCHANGE};
    for (const auto& [border, refuses, current, codes] :
         Table<bool, int, Codes>{{"refused", true, 0, {TCN_SELCHANGING}}, {"taken", false, 1, taken}}) {
        m_frame.refuses = refuses;
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(1).center());
        EXPECT_EQ(tabs.GetCurSel(), current) << border;
        EXPECT_EQ(bar.currentIndex(), current) << border;
        EXPECT_EQ(m_frame.Take(), codes) << border;
    }
    tabs.DeleteItem(1);
    EXPECT_EQ(tabs.GetCurSel(), -1);
    QTest::mouseClick(&bar, Qt::RightButton, {}, bar.tabRect(0).center());
    EXPECT_EQ(tabs.GetCurSel(), -1) << "the right button chooses nothing";
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(0).center());
    EXPECT_EQ(tabs.GetCurSel(), 0) << "the bar has shown it as the current one";
    EXPECT_EQ(m_frame.Take(), taken);
    CRect page = tabs.GetClientRect();
    tabs.AdjustRect(false, page);
    EXPECT_GE(page.top, bar.tabRect(0).bottom());
}

TEST_F(Controls, TheFieldOfAComboBoxLeavesTheArrowFree) {
    MakeBox(CBS_DROPDOWN);
    auto& box = WidgetOf<QComboBox>(m_box);
    QStyleOptionComboBox option;
    option.initFrom(&box);
    option.editable = true;
    const QRect arrow =
        box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, &box);
    const QRect field = m_user.Widget(GetFirstChild(m_box.m_hWnd))->geometry();
    EXPECT_FALSE(arrow.intersects(field));
    EXPECT_LT(arrow.left() - field.right(), 8);
}

TEST_F(Controls, LinesAreSeenOnEveryGround) {
    const QPalette before = QApplication::palette();
    for (const auto& [border, ground] :
         Table<QColor>{{"light", QColor(0xF0F0F0)}, {"dark", QColor(0x353535)}}) {
        QApplication::setPalette(QPalette(ground, ground));
        EXPECT_GT(internal::ContrastOf(GetSysColor(COLOR_BTNSHADOW), GetSysColor(COLOR_WINDOW)), 1.4)
            << border;
    }
    QApplication::setPalette(before);
}

TEST_F(Controls, AltWithALetterTypesNothing) {
    for (const auto& [border, className, style, text] :
         Table<const char*, UINT, CString>{{"one line", "EDIT", 0, "7"},
                                           {"several lines", "EDIT", ES_MULTILINE, "7"},
                                           {"combo box", "COMBOBOX", CBS_DROPDOWN, "7"},
                                           {"date", "SysDateTimePick32", 0, "07"}}) {
        SCOPED_TRACE(border);
        const HWND field = CreateWindowExA(0, className, "", WS_CHILD | WS_VISIBLE | style, {10, 10, 200, 60},
                                           m_frame.m_hWnd, 1);
        SendMessageA(field, DTM_SETFORMAT, 0, reinterpret_cast<LPARAM>("dd"));
        const SYSTEMTIME time{2026, 3, 0, 4, 5};
        SendMessageA(field, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time));
        const CString before = korvel::GetWindowTextA(field);
        SetFocus(field);
        QKeyEvent withAlt(QEvent::KeyPress, Qt::Key_9, Qt::AltModifier, QStringLiteral("9"));
        QApplication::sendEvent(m_user.Widget(GetFocus()), &withAlt);
        EXPECT_EQ(korvel::GetWindowTextA(field), before);
        EXPECT_FALSE(withAlt.isAccepted()) << "the host may want it";
        Press('7', "7");
        EXPECT_EQ(korvel::GetWindowTextA(field), text);
        DestroyWindow(field);
    }
    MakeBox(CBS_DROPDOWN);
    QTest::keyClick(m_user.Widget(GetFocus()), Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(m_box.GetDroppedState());
}

TEST_F(Controls, AFieldKeepsTheTextItIsMadeWith) {
    for (const auto& [border, className, style, text] :
         Table<const char*, UINT, CString>{{"one line", "EDIT", 0, "Axis 3"},
                                           {"several lines", "EDIT", ES_MULTILINE, "one\ntwo"},
                                           {"as it came in", "RICHEDIT50W", ES_MULTILINE, "one\ntwo"}}) {
        const HWND field = CreateWindowExA(0, className, text.c_str(), WS_CHILD | WS_VISIBLE | style,
                                           {10, 10, 200, 60}, m_frame.m_hWnd, 1);
        EXPECT_EQ(korvel::GetWindowTextA(field), text) << border;
        EXPECT_EQ(m_frame.Take(), Codes()) << border;
        DestroyWindow(field);
    }
}

TEST_F(Controls, MarginsAreThoseOfTheWindow) {
    CEdit line, lines;
    line.Create(WS_CHILD | WS_VISIBLE, {10, 10, 150, 34}, &m_frame, 1);
    lines.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, {10, 40, 150, 134}, &m_frame, 2);
    for (CEdit* edit : {&line, &lines})
        edit->SetMargins(12, 5);
    EXPECT_EQ(WidgetOf<QLineEdit>(line).textMargins(), QMargins(12, 0, 5, 0));
    EXPECT_EQ(WidgetOf<QPlainTextEdit>(lines).viewport()->x(), 12);
}

} // namespace

} // namespace korvel::test
