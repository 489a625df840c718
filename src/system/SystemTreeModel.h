#pragma once

#include "core/Biorhythm.h"

#include <QAbstractItemModel>
#include <QIcon>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace quor {

/// The views that each member of a system offers, in the order of its branch.
enum class MemberView : std::uint8_t { graph, weekly, dayState, forecasts };

/// The tree of the members of a system: a branch for each, with its four views as leaves.
///
/// It stands on the program's list of members and holds no node of its own, only which member each
/// branch shows: when a member goes, the last one takes its place in the list, while the tree keeps
/// the order in which the members came.
class SystemTreeModel : public QAbstractItemModel {
    Q_OBJECT

  public:
    /// The pictures of the branches and of their leaves.
    struct Images {
        QIcon member;
        std::array<QIcon, 4> views; ///< by `MemberView`
    };

    /// @param state outlives the model; from now on members come and go by way of the model alone
    SystemTreeModel(AppState& state, Images images, QObject* parent = nullptr);

    /// Members that a filled tree begins with.
    static constexpr int firstRows = 1000;

    /// Shows the members that the program has now, in the order of their list: the first ones at
    /// once and the others with `showAll`. A view lays out every row that it knows of before it
    /// shows any, and asks for what the toolkit's own `fetchMore` holds back there and then.
    void fill();
    void showAll();

    /// Shows no member any more: to be called before the list of members goes.
    void clear();

    /// Puts a member at the end of the list and of the tree.
    /// @return false, and nothing changes, when the system has the largest number of members
    bool addMember(SystemMember member);

    /// Takes the member of a branch out of the list and of the tree. The list of an empty system
    /// keeps one entry that no longer counts.
    void removeMember(const QModelIndex& branch);

    /// The node is a member, not one of its views.
    [[nodiscard]] static bool isMember(const QModelIndex& node);
    /// The view that a leaf stands for; nothing for a member.
    [[nodiscard]] static std::optional<MemberView> view(const QModelIndex& node);
    /// The member whose branch the node is or belongs to.
    /// @param node valid
    [[nodiscard]] const SystemMember& member(const QModelIndex& node) const;

    [[nodiscard]] QModelIndex index(int row, int column,
                                    const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] bool hasChildren(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& node, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& node) const override;

  private:
    /// A branch. Its number never changes, unlike its row and its member's place in the list;
    /// leaves know their branch by it.
    struct Branch {
        std::uint32_t number;
        std::int16_t member; ///< index in the list
    };

    void append(std::int16_t member);
    [[nodiscard]] int rowOf(std::uint32_t number) const;
    [[nodiscard]] const Branch& branchOf(const QModelIndex& node) const;

    AppState& m_state;
    Images m_images;
    std::vector<Branch> m_branches; ///< by row, their numbers ascending
    int m_shownRows = 0;            ///< the branches that are rows, from the first on
    std::uint32_t m_nextNumber = 1; ///< 0 marks a branch among the indexes
};

} // namespace quor
