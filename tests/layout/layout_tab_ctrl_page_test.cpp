#include "korvel/layout/base_item.h"
#include "korvel/layout/configuration_tab_ctrl_page.h"
#include "korvel/layout/pane_manager.h"
#include "korvel/platform/settings_store.h"
#include "korvel/window/core/registered_messages.h"
#include "korvel/window/core/scroll_bar.h"
#include "support/dialog_fixture.h"
#include "support/scratch.h"

namespace korvel {
namespace {

constexpr UINT TemplateId = 15002;
constexpr int ListId = 10;

class Page : public CConfigurationTabCtrlPage {
public:
    Page() : CConfigurationTabCtrlPage(TemplateId, "Plan") {}
    Log heard; // by the direct child
    bool hadLayoutAtSave = false;

    BOOL OnInitDialog() override {
        m_list.page = this;
        m_list.SubclassDlgItem(ListId, this);
        CConfigurationTabCtrlPage::OnInitDialog();
        InitializeLayout();
        auto* pane = new CPaneManager(1, ItemGrowX | ItemGrowY);
        pane->SetRect(clientRect);
        pane->Add(new CBaseItem(m_hWnd, ListId, ItemGrowX | ItemGrowY));
        root = pane;
        return 1;
    }
    CRect List() const { return korvel::GetWindowRect(korvel::GetDlgItem(m_hWnd, ListId)); }

private:
    struct ListOfPage : CWnd {
        Page* page = nullptr;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_DLG_STATE_REGISTRY) {
                page->heard.push_back(std::to_string(wParam) + " " + reinterpret_cast<const char*>(lParam));
                page->hadLayoutAtSave = page->root != nullptr;
            }
            return CWnd::WindowProc(message, wParam, lParam);
        }
    } m_list;
};

class LayoutTabCtrlPage : public DialogTest {
protected:
    LayoutTabCtrlPage() {
        host.m_pszAppName = "Line Planner";
        Have({{TemplateId, "", WS_CHILD | WS_VISIBLE, {0, 0, 100, 80}, m_items}});
        tabs.CreateEx(0, "KorvelFrame", "", WS_CHILD | WS_VISIBLE, {10, 10, 700, 500}, &frame, 1);
    }

    platform::ScratchStore store;
    CWnd tabs;

private:
    const DialogItem m_items[1] = {{"STATIC", "", ListId, 0, {0, 0, 100, 80}}};
};

TEST_F(LayoutTabCtrlPage, LaysOutScrollsAndKeepsItsState) {
    const std::string key = R"(SOFTWARE\Halmond\Korvel\DlgStates\Line Planner\15002\)";
    Page page;
    ASSERT_TRUE(page.AttachTo(&tabs));
    EXPECT_EQ(GetParent(page.m_hWnd), tabs.m_hWnd);
    EXPECT_EQ(page.GetTitle(), "Plan");
    EXPECT_THAT(page.heard, ElementsAre("0 " + key));

    const CSize design{page.clientRect.Width(), page.clientRect.Height()};
    page.scrollEnabled = true;
    page.MoveWindow({0, 0, design.cx + 50, design.cy / 2});
    EXPECT_EQ(page.List().Height(), design.cy);
    const int top = page.List().top;
    page.SendMessageA(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 9));
    EXPECT_EQ(page.List().top, top - 9);
    page.SendMessageA(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 5), reinterpret_cast<LPARAM>(tabs.m_hWnd));
    EXPECT_EQ(page.List().top, top - 9) << "of a control, not of the page's bar";
    MINMAXINFO limits;
    page.SendMessageA(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    EXPECT_EQ(limits.ptMinTrackSize, (CPoint{design.cx, design.cy}));

    page.DestroyWindow();
    EXPECT_THAT(page.heard, ElementsAre("0 " + key, "1 " + key));
    EXPECT_TRUE(page.hadLayoutAtSave) << "the children hear of it before anything goes";
    EXPECT_FALSE(page.root);

    Page again;
    again.AttachTo(&tabs);
    EXPECT_EQ(again.GetWindowRect().Width(), design.cx) << "what is remembered is not applied";
}

TEST_F(LayoutTabCtrlPage, OfTheLibraryItKeepsItsStateUnderTheLibrarysName) {
    Page page;
    {
        const ModuleStateGuard guard;
        // The template is the host's, so the library has to be lent it.
        GetModuleApp().m_pResources = host.m_pResources;
        ASSERT_TRUE(page.AttachTo(&tabs));
        GetModuleApp().m_pResources = nullptr;
    }
    page.DestroyWindow();
    const std::string key = R"(SOFTWARE\Halmond\Korvel\DlgStates\KorvelCommonDialogs\15002\)";
    EXPECT_THAT(page.heard, ElementsAre("0 " + key, "1 " + key));
}

TEST_F(LayoutTabCtrlPage, NeedsAHostWithAWindow) {
    Page page;
    CWnd none;
    EXPECT_FALSE(page.AttachTo(nullptr));
    EXPECT_FALSE(page.AttachTo(&none));
    EXPECT_FALSE(page.m_hWnd);
}

} // namespace
} // namespace korvel
