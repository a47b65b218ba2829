#pragma once

#include "korvel/window/base/types.h"

#include <QMetaObject>
#include <QPointer>
#include <QWidget>
#include <chrono>

namespace korvel::internal {

class PeerTable;

/// Carries the focus from the window model to Qt and back. The window model decides; Qt only reports where
/// the user, or the window manager, moved it. Ignored is what Qt does by itself: its popups, the boxes that
/// the library asked for, and the moment without focus while another window of ours is being activated.
class FocusTracker {
public:
    explicit FocusTracker(PeerTable& peers);
    ~FocusTracker();
    FocusTracker(const FocusTracker&) = delete;
    FocusTracker& operator=(const FocusTracker&) = delete;

    /// The window model has given the focus to this window, or to none.
    void Show(HWND window);
    /// We are about to make the top-level window active.
    void ExpectActivation(QWidget& top);
    /// Makes a top-level window active.
    void Activate(QWidget& top);
    /// A top-level window of ours became active.
    void Activated() { m_expected.clear(); }

    /// While an object of this class exists, a box of ours has the focus. At its end the window that asked
    /// becomes active.
    class Question {
    public:
        Question(FocusTracker& tracker, QWidget* owner);
        ~Question();
        Question(const Question&) = delete;
        Question& operator=(const Question&) = delete;

    private:
        FocusTracker& m_tracker;
        QPointer<QWidget> m_owner;
    };

private:
    void OnFocusChanged(QWidget* now);
    bool IsActivationUnderWay() const;

    PeerTable& m_peers;
    QMetaObject::Connection m_connection;
    QPointer<QWidget> m_expected;
    std::chrono::steady_clock::time_point m_expectedUntil;
    int m_showing = 0;
    int m_questions = 0;
};

} // namespace korvel::internal
