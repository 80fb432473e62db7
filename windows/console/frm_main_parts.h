#pragma once

// What the parts of the main window's implementation share; not for use elsewhere.

#include "ui/controls.h"

#include <QCoreApplication>
#include <QListWidget>
#include <QSizeF>
#include <QString>
#include <QStringList>

namespace quellpad::frm_main_parts {

// The client area the controls are designed for; everything scales from it.
inline constexpr QSizeF kDesignSize{576, 390};

// The second line of a number box's label, in the operator's language.
inline QString NumberCaption() {
    return QCoreApplication::translate("FrmMain", "Number");
}

// Fills a one-line list and shows the selected item.
inline void FillList(QListWidget* list, const QStringList& items, int selected) {
    list->clear();
    list->setUniformItemSizes(true); // one item's size is every item's: a cheap layout
    list->addItems(items);
    list->setCurrentRow(selected);
    // Scrolled by whole items, so that even the last item can stand on top.
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    list->scrollToItem(list->item(selected), QAbstractItemView::PositionAtTop);
}

// A one-line list is read through the item it shows on top, which becomes its current
// item; the index counts from the list's first item.
inline int SelectTopItem(QListWidget* list) {
    const int top = ui::TopIndex(list);
    if (top >= 0) {
        list->setCurrentRow(top);
    }
    return list->currentRow();
}

} // namespace quellpad::frm_main_parts
