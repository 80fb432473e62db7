#pragma once

// What the parts of the main window share; not for use elsewhere.

#include "console/targets.h"
#include "ui/controls.h"
#include "ui/proportional_layout.h"

#include <QCoreApplication>
#include <QListWidget>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class QLineEdit;
class QWidget;

namespace quellpad {
class Quellpad_Support_Func;
namespace ui {
class ErrorBoundary;
}
} // namespace quellpad

namespace quellpad::frm_main_parts {

// The client area the controls are designed for; everything scales from it.
inline constexpr QSizeF kDesignSize{576, 390};

// What every part of the main window works with: the keyboard it loads, the boundary its
// handlers run behind, the window its messages belong to, and the face its controls are
// placed on.
struct PartContext {
    Quellpad_Support_Func& keyboard;
    ui::ErrorBoundary& boundary;
    QWidget* window;
    QWidget* canvas;
    ui::ProportionalLayout& layout;

    // Places a control at a rectangle of the design size, with its font's design size.
    void Place(QWidget* control, double x, double y, double w, double h,
               double points = 8.0) const {
        layout.Place(control, QRectF(x, y, w, h), points);
    }
};

// Runs handler, behind the error boundary as "<name>_Click", when the window's button or
// menu item of that name is chosen.
void OnControl(const PartContext& context, const char* name, std::function<void()> handler);

// Runs a number box's check, behind the error boundary as "<objectName>_Change", at every
// change of its text; a refusal is told, the box emptied, and `then` runs after either
// outcome.
void OnChange(const PartContext& context, QLineEdit* box,
              std::function<std::optional<Refusal>()> check, std::function<void()> then = {});

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
