// Links each exported class of the core: its destructor, its type and, where it can be made out of nothing,
// its constructor. What else a class declares is exported with it.

#include "all_headers.h"

#include <memory>
#include <type_traits>
#include <typeinfo>

using namespace korvel;

namespace {

template <class T>
void Use() {
    [[maybe_unused]] void (*volatile destroy)(T*) = nullptr;
    if constexpr (std::is_destructible_v<T>)
        destroy = [](T* object) { object->~T(); };
    [[maybe_unused]] const std::type_info* volatile type = &typeid(T);
    if constexpr (std::is_default_constructible_v<T>)
        std::make_unique<T>();
}

template <class... T>
void UseAll() {
    (Use<T>(), ...);
}

struct LaidOut : CWnd, CLayoutManager<LaidOut> {
    using LayoutManagerBase::DestroyLayout;
};

template <class Member>
void UseMember(Member member) {
    [[maybe_unused]] volatile Member used = member;
}

} // namespace

// Never called: it is enough that it links.
void UseExportedClasses() {
    UseAll<CXmlAttributeSet, CXmlNode, CXmlNodeBase, CXmlNodeBase::CXmlNodeException, XmlElement, XmlError,
           XmlFileError, XmlParser, XmlReason, XmlScanner, XmlSchemaError>();
    UseAll<CColorAplhaDlg, CColorDialog, mfcSharedCtrls::CColoredButton, CWndItem>();
    UseAll<CComboList, CGridCtrlComboBoxButton, CGridCtrlComboBoxEdit, CGridCtrlDateTime, CGridCtrlEdit,
           CGridCtrlSpinButton, CTooltippBitmap, CTreeHelper, CTreeHelper::SNode, ComboTreeItem,
           IGridCtrlComboBoxInputState, CGridCtrlComboBoxInputState, CGridCtrlComboBoxInputStateCheckBox,
           CGridCtrlComboBoxInputStateDesignDefault, CGridCtrlComboBoxInputStateTree,
           CGridCtrlComboBoxInputStateTreeCheckBox>();
    UseAll<CEditableGrid, MemberCommandGrid, CellEditGrid, ExchangeGrid, IGridErrorReporter, CSuperGridCtrl,
           CItemInfo, CSuperGridCtrl::CTreeItem, ChildList>();
    UseAll<CEventSinkObserver, IEventSink, IEventSource, PlacedEventSink, CGridEvents, EventQueue,
           EventFilter>();
    UseAll<CSubclassWnd, CComboListHook<CComboList>, IItem, CBaseItem, CPaneManager, LaidOut, DlgStateBase,
           CLayoutTabCtrlPage, CConfigurationTabCtrlPage>();
    UseAll<INumberFormatChanged, IAngleFormatChanged, IDateFormatChanged, ISystemChangedObserver>();
    UseAll<CVariantValue, CFileValueImp, IFileContainer, IFileValue, IComboBoxParent, IDestroyValue,
           IEnumValue, IEnumSink, IEnumContainer, EnumImages, GroupPresentation, IMemberDispatch,
           IMemberCommandSink, IObserverGrid, IObserverGridSink,
           KorvelCommonEntityFunction::IKorvelCommonEntityFunction>();
    UseAll<Error, FileError, UnreadableFile, invalid_operation, platform::SettingValue>();
    UseAll<CWnd, CEdit, CButton, CStatic, CHeaderCtrl, CListCtrl, CMenu, CDialog, CMFCButton, CWaitCursor,
           CDC, CRgn, CImageList, IDisplay>();
    UseAll<CComboBox, CDateTimeCtrl, CProgressCtrl, CRichEditCtrl, CSliderCtrl, CSpinButtonCtrl, CTabCtrl,
           CToolTipCtrl>();
    UseAll<CDialogCodeList, CDialogEditCodeList, CDialogText, CDlgEditAttributs, CDlgProgress,
           IObserver_DlgProgress, CSelectFolderDlg>();
    UseMember(&NewDlgProgress);
    UseMember(&CreateDlgProgress);
    UseMember(&DeleteDlgProgress);
    UseAll<CWinApp, CWinAppNoReleaseD2DRefs, CKorvelCommonDialogsApp, ModuleStateGuard>();
    UseMember(&platform::SettingValue::AsNumber);
    UseMember(&CDC::LineTo);
    UseMember(&CImageList::GetImage);
    UseMember(&EventsAsText);
    UseMember(&CopyEvents);
    UseMember(&SaveEvents);
}
