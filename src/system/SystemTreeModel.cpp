#include "system/SystemTreeModel.h"

#include "toolkit/LineText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr quintptr branchMark = 0;
constexpr int viewCount = 4;

QString caption(MemberView view) {
    switch (view) {
    case MemberView::graph:
        return u"Grafico"_s;
    case MemberView::weekly:
        return u"Settimanale"_s;
    case MemberView::dayState:
        return u"Statistiche"_s;
    case MemberView::forecasts:
        break;
    }
    return u"Previsioni"_s;
}

} // namespace

SystemTreeModel::SystemTreeModel(AppState& state, Images images, QObject* parent)
    : QAbstractItemModel(parent)
    , m_state(state)
    , m_images(std::move(images)) {}

void SystemTreeModel::fill() {
    beginResetModel();
    m_branches.clear();
    m_branches.reserve(static_cast<std::size_t>(m_state.systemCount));
    for (std::int16_t i = 0; i < m_state.systemCount; ++i) {
        append(i);
    }
    m_shownRows = std::min<int>(m_state.systemCount, firstRows);
    endResetModel();
}

void SystemTreeModel::showAll() {
    const auto all = static_cast<int>(m_branches.size());
    if (m_shownRows == all) {
        return;
    }
    beginInsertRows({}, m_shownRows, all - 1);
    m_shownRows = all;
    endInsertRows();
}

void SystemTreeModel::clear() {
    beginResetModel();
    m_branches.clear();
    m_shownRows = 0;
    endResetModel();
}

bool SystemTreeModel::addMember(SystemMember member) {
    if (m_state.systemCount == maximumMembers) {
        return false;
    }
    showAll();
    beginInsertRows({}, m_shownRows, m_shownRows);
    m_state.systemMembers.resize(static_cast<std::size_t>(m_state.systemCount));
    m_state.systemMembers.push_back(std::move(member));
    append(m_state.systemCount);
    ++m_state.systemCount;
    ++m_shownRows;
    endInsertRows();
    return true;
}

void SystemTreeModel::removeMember(const QModelIndex& branch) {
    const int row = branch.row();
    beginRemoveRows({}, row, row);
    const std::int16_t removed = branchOf(branch).member;
    const auto last = static_cast<std::int16_t>(m_state.systemCount - 1);
    std::vector<SystemMember>& members = m_state.systemMembers;
    members.at(static_cast<std::size_t>(removed)) = members.at(static_cast<std::size_t>(last));
    std::ranges::find(m_branches, last, &Branch::member)->member = removed;
    m_branches.erase(m_branches.begin() + row);
    --m_shownRows;
    m_state.systemCount = last;
    members.resize(static_cast<std::size_t>(std::max<std::int16_t>(last, 1)));
    endRemoveRows();
}

bool SystemTreeModel::isMember(const QModelIndex& node) {
    return node.isValid() && node.internalId() == branchMark;
}

std::optional<MemberView> SystemTreeModel::view(const QModelIndex& node) {
    if (!node.isValid() || isMember(node)) {
        return std::nullopt;
    }
    return static_cast<MemberView>(node.row());
}

const SystemMember& SystemTreeModel::member(const QModelIndex& node) const {
    return m_state.systemMembers.at(static_cast<std::size_t>(branchOf(node).member));
}

QModelIndex SystemTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || row >= SystemTreeModel::rowCount(parent) || column != 0) {
        return {};
    }
    return createIndex(row, column, parent.isValid() ? branchOf(parent).number : branchMark);
}

QModelIndex SystemTreeModel::parent(const QModelIndex& child) const {
    if (!child.isValid() || isMember(child)) {
        return {};
    }
    return createIndex(rowOf(static_cast<std::uint32_t>(child.internalId())), 0, branchMark);
}

int SystemTreeModel::rowCount(const QModelIndex& parent) const {
    if (!parent.isValid()) {
        return m_shownRows;
    }
    return isMember(parent) ? viewCount : 0;
}

int SystemTreeModel::columnCount(const QModelIndex& /*parent*/) const {
    return 1;
}

bool SystemTreeModel::hasChildren(const QModelIndex& parent) const {
    return parent.isValid() ? isMember(parent) : m_shownRows > 0;
}

QVariant SystemTreeModel::data(const QModelIndex& node, int role) const {
    if (!node.isValid()) {
        return {};
    }
    const auto view = SystemTreeModel::view(node);
    switch (role) {
    case Qt::DisplayRole:
        return view ? caption(*view) : lineText(u"Bioritmo di "_s + member(node).name);
    case Qt::DecorationRole:
        return view ? m_images.views.at(static_cast<std::size_t>(*view)) : m_images.member;
    default:
        return {};
    }
}

Qt::ItemFlags SystemTreeModel::flags(const QModelIndex& node) const {
    if (!node.isValid()) {
        return Qt::NoItemFlags;
    }
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return isMember(node) ? flags : flags | Qt::ItemNeverHasChildren;
}

void SystemTreeModel::append(std::int16_t member) {
    m_branches.push_back({.number = m_nextNumber, .member = member});
    ++m_nextNumber;
}

int SystemTreeModel::rowOf(std::uint32_t number) const {
    const auto branch = std::ranges::lower_bound(m_branches, number, {}, &Branch::number);
    return static_cast<int>(branch - m_branches.begin());
}

const SystemTreeModel::Branch& SystemTreeModel::branchOf(const QModelIndex& node) const {
    const int row =
        isMember(node) ? node.row() : rowOf(static_cast<std::uint32_t>(node.internalId()));
    return m_branches.at(static_cast<std::size_t>(row));
}

} // namespace quor
