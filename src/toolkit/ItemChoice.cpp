#include "toolkit/ItemChoice.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QItemSelectionModel>
#include <QPersistentModelIndex>
#include <QTreeView>

#include <memory>
#include <utility>

namespace quor {

void whenChosenByTool(QAbstractItemView& view, std::function<void(const QModelIndex&)> chosen) {
    struct Happened {
        QPersistentModelIndex selected;
        QPersistentModelIndex current;
    };
    const auto happened = std::make_shared<Happened>();
    QItemSelectionModel* selection = view.selectionModel();
    QObject::connect(selection, &QItemSelectionModel::selectionChanged, &view,
                     [happened](const QItemSelection& added) {
                         happened->selected =
                             added.isEmpty() ? QModelIndex() : added.indexes().constFirst();
                     });
    QObject::connect(selection, &QItemSelectionModel::currentChanged, &view,
                     [happened](const QModelIndex& current) { happened->current = current; });
    // A key selects before it moves the current item and the mouse afterwards, so both are awaited.
    const auto review = [happened, chosen = std::move(chosen)] {
        const Happened both = std::exchange(*happened, {});
        if (both.selected.isValid() && both.selected != both.current) {
            chosen(both.selected);
        }
    };
    QObject::connect(selection, &QItemSelectionModel::selectionChanged, &view, review,
                     Qt::QueuedConnection);
    QObject::connect(selection, &QItemSelectionModel::currentChanged, &view, review,
                     Qt::QueuedConnection);
}

void selectItemsByTool(QTreeView& tree) {
    tree.setSelectionBehavior(QAbstractItemView::SelectItems);
}

void chooseByTool(QComboBox& list) {
    QAbstractItemView* view = list.view();
    whenChosenByTool(*view, [&list, view](const QModelIndex& item) {
        list.hidePopup(); // before the choice, which may open a box
        view->setCurrentIndex(item);
        list.setCurrentIndex(item.row());
    });
}

} // namespace quor
