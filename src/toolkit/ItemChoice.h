#pragma once

#include <functional>

class QAbstractItemView;
class QComboBox;
class QModelIndex;
class QTreeView;

/// Choosing items with assistive tools. The one action that Qt offers them for an item of a list or
/// tree selects it and does nothing else: no item is clicked or activated by it.
namespace quor {

/// Calls the function with each item that such a tool selects. It is told from hands by the current
/// item, which they move along with the selection and the tool does not.
/// @param view has its model, and keeps it; code selects in it by making an item the current one
void whenChosenByTool(QAbstractItemView& view, std::function<void(const QModelIndex&)> chosen);

/// Has such a tool select the item that it names, in a tree of one column. Where whole rows are
/// selected, Qt takes the item's row below its parent for one of the whole tree.
void selectItemsByTool(QTreeView& tree);

/// Makes an item that such a tool selects in the drop-down list its current one.
/// @param list has its model, and keeps it
void chooseByTool(QComboBox& list);

} // namespace quor
