#pragma once

#include "korvel/window/base/types.h"

#include <QAbstractListModel>

namespace korvel::internal {

/// The entries of a combo box for Qt, which asks for the texts that it shows.
class ChoiceModel final : public QAbstractListModel {
public:
    ChoiceModel(HWND window, QObject* parent) : QAbstractListModel(parent), m_window(window) {}

    /// The entries have changed.
    void Reset();
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_count; }
    QVariant data(const QModelIndex& index, int role) const override;

private:
    HWND m_window;
    int m_count = 0; // what Qt knows; the window may have more or fewer until Reset
};

} // namespace korvel::internal
