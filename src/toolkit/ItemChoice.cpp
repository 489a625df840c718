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
    const auto selected = std::make_shared<QPersistentModelIndex>();
    QItemSelectionModel* selection = view.selectionModel();
    QObject::connect(selection, &QItemSelectionModel::selectionChanged, &view,
                     [selected](const QItemSelection& added) {
                         *selected = added.isEmpty() ? QModelIndex() : added.indexes().constFirst();
                     });
    // A hand's selection is followed by this at once.
    QObject::connect(selection, &QItemSelectionModel::currentChanged, &view,
                     [selected] { *selected = QModelIndex(); });
    QObject::connect(
        selection, &QItemSelectionModel::selectionChanged, &view,
        [selected, chosen = std::move(chosen)] {
            const QModelIndex item = std::exchange(*selected, QPersistentModelIndex());
            if (item.isValid()) {
                chosen(item);
            }
        },
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
