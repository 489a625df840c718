#include "system/TestSystemTreeModel.h"

#include "system/SystemFixture.h"
#include "system/SystemTreeModel.h"

#include <QAbstractItemModelTester>
#include <QPixmap>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

QIcon colouredIcon(Qt::GlobalColor colour) {
    QPixmap pixmap(4, 4);
    pixmap.fill(colour);
    return pixmap;
}

Qt::GlobalColor viewColour(int view) {
    return static_cast<Qt::GlobalColor>(Qt::red + view);
}

SystemTreeModel::Images images() {
    SystemTreeModel::Images images{.member = colouredIcon(Qt::black), .views = {}};
    for (int view = 0; view < 4; ++view) {
        images.views.at(static_cast<std::size_t>(view)) = colouredIcon(viewColour(view));
    }
    return images;
}

QColor colourOf(const QModelIndex& node) {
    return node.data(Qt::DecorationRole).value<QIcon>().pixmap(4, 4).toImage().pixelColor(0, 0);
}

/// A filled model over members of the given names; the toolkit's own checks watch it.
class Fixture {
  public:
    explicit Fixture(const QStringList& names)
        : program(programWith(names)) {
        model.fill();
    }

    [[nodiscard]] QStringList branches() const {
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row) {
            texts << model.index(row, 0).data().toString();
        }
        return texts;
    }

    Program program;
    SystemTreeModel model{program.state, images()};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};
};

} // namespace

void TestSystemTreeModel::empty() {
    const Fixture fixture({});
    QCOMPARE(fixture.model.rowCount(), 0);
    QVERIFY(!fixture.model.hasChildren());
    QVERIFY(!fixture.model.index(0, 0).isValid());
    QVERIFY(!SystemTreeModel::isMember({}));
    QVERIFY(!SystemTreeModel::view({}));
}

void TestSystemTreeModel::branchesAndLeaves() {
    const Fixture fixture({u"Anna"_s, u"Bruno"_s});
    const SystemTreeModel& model = fixture.model;
    QCOMPARE(fixture.branches(), (QStringList{u"Bioritmo di Anna"_s, u"Bioritmo di Bruno"_s}));
    const QStringList views{u"Grafico"_s, u"Settimanale"_s, u"Statistiche"_s, u"Previsioni"_s};
    for (int row = 0; row < 2; ++row) {
        const QModelIndex branch = model.index(row, 0);
        QVERIFY(SystemTreeModel::isMember(branch));
        QVERIFY(!SystemTreeModel::view(branch));
        QCOMPARE(colourOf(branch), QColor(Qt::black));
        QCOMPARE(model.rowCount(branch), 4);
        for (int view = 0; view < 4; ++view) {
            const QModelIndex leaf = model.index(view, 0, branch);
            QCOMPARE(leaf.data().toString(), views.at(view));
            QCOMPARE(colourOf(leaf), QColor(viewColour(view)));
            QVERIFY(!SystemTreeModel::isMember(leaf));
            QCOMPARE(SystemTreeModel::view(leaf), static_cast<MemberView>(view));
            QCOMPARE(leaf.parent(), branch);
            QCOMPARE(model.member(leaf),
                     fixture.program.state.systemMembers.at(static_cast<std::size_t>(row)));
            QVERIFY(!model.hasChildren(leaf));
        }
    }
}

void TestSystemTreeModel::keepsTheRulesOfModels() {
    // The tester is there throughout; here it sees everything that can happen.
    Fixture fixture({u"Anna"_s, u"Bruno"_s, u"Carla"_s});
    QVERIFY(fixture.model.addMember({u"Dario"_s, 1}));
    fixture.model.removeMember(fixture.model.index(1, 0));
    QVERIFY(fixture.model.addMember({u"Bruno"_s, 2}));
    QCOMPARE(fixture.branches(), (QStringList{u"Bioritmo di Anna"_s, u"Bioritmo di Carla"_s,
                                              u"Bioritmo di Dario"_s, u"Bioritmo di Bruno"_s}));
}

void TestSystemTreeModel::adding() {
    Fixture fixture({});
    fixture.program.state.systemMembers.assign(1, {u"stale"_s, 5}); // as a closed system leaves it
    QSignalSpy inserted(&fixture.model, &QAbstractItemModel::rowsInserted);
    QVERIFY(fixture.model.addMember({u"Anna"_s, 7}));
    QVERIFY(fixture.model.addMember({u"Bruno"_s, 8}));
    QCOMPARE(inserted.size(), 2);
    QCOMPARE(fixture.program.state.systemCount, std::int16_t{2});
    QCOMPARE(fixture.program.state.systemMembers,
             (std::vector<SystemMember>{{u"Anna"_s, 7}, {u"Bruno"_s, 8}}));
    QCOMPARE(fixture.branches(), (QStringList{u"Bioritmo di Anna"_s, u"Bioritmo di Bruno"_s}));
}

void TestSystemTreeModel::removingTheFirstOfThree() {
    Fixture fixture({u"Anna"_s, u"Bruno"_s, u"Carla"_s});
    const SystemMember carla = fixture.program.state.systemMembers.at(2);
    fixture.model.removeMember(fixture.model.index(0, 0));
    QCOMPARE(memberNames(fixture.program.state), (QStringList{u"Carla"_s, u"Bruno"_s}));
    QCOMPARE(fixture.program.state.systemMembers.size(), std::size_t{2});
    QCOMPARE(fixture.program.state.systemMembers.at(0), carla); // with her birth date
    QCOMPARE(fixture.branches(), (QStringList{u"Bioritmo di Bruno"_s, u"Bioritmo di Carla"_s}));
    QCOMPARE(fixture.model.member(fixture.model.index(1, 0)), carla);

    // And again, now that rows and places differ.
    fixture.model.removeMember(fixture.model.index(1, 0));
    QCOMPARE(memberNames(fixture.program.state), QStringList{u"Bruno"_s});
    QCOMPARE(fixture.branches(), QStringList{u"Bioritmo di Bruno"_s});
}

void TestSystemTreeModel::removingTheLastOfTheList() {
    Fixture fixture({u"Anna"_s, u"Bruno"_s, u"Carla"_s});
    fixture.model.removeMember(fixture.model.index(2, 0));
    QCOMPARE(memberNames(fixture.program.state), (QStringList{u"Anna"_s, u"Bruno"_s}));
    QCOMPARE(fixture.branches(), (QStringList{u"Bioritmo di Anna"_s, u"Bioritmo di Bruno"_s}));
}

void TestSystemTreeModel::removingUntilNoneIsLeft() {
    Fixture fixture({u"Anna"_s});
    fixture.model.removeMember(fixture.model.index(0, 0));
    QCOMPARE(fixture.program.state.systemCount, std::int16_t{0});
    QCOMPARE(fixture.program.state.systemMembers.size(), std::size_t{1}); // one stale entry
    QCOMPARE(fixture.model.rowCount(), 0);
    QVERIFY(fixture.model.addMember({u"Bruno"_s, 3}));
    QCOMPARE(fixture.program.state.systemMembers, (std::vector<SystemMember>{{u"Bruno"_s, 3}}));
}

void TestSystemTreeModel::leavesStayWithTheirBranch() {
    Fixture fixture({u"Anna"_s, u"Bruno"_s, u"Carla"_s});
    const QPersistentModelIndex branch = fixture.model.index(2, 0);
    const QPersistentModelIndex leaf = fixture.model.index(3, 0, branch);
    fixture.model.removeMember(fixture.model.index(0, 0));
    QCOMPARE(branch.row(), 1);
    QCOMPARE(leaf.parent(), QModelIndex(branch));
    QCOMPARE(fixture.model.member(leaf).name, u"Carla"_s);
    QCOMPARE(SystemTreeModel::view(leaf), MemberView::forecasts);
}

void TestSystemTreeModel::fillingAgain() {
    Fixture fixture({u"Anna"_s, u"Bruno"_s});
    fixture.model.removeMember(fixture.model.index(0, 0));
    fixture.program.state = programWith({u"Carla"_s, u"Dario"_s, u"Elsa"_s}).state;
    fixture.model.fill();
    QCOMPARE(fixture.branches(),
             (QStringList{u"Bioritmo di Carla"_s, u"Bioritmo di Dario"_s, u"Bioritmo di Elsa"_s}));
}

void TestSystemTreeModel::theLargestSystem() {
    constexpr int largest = 32'767;
    QStringList names;
    for (int i = 1; i < largest; ++i) {
        names << QString::number(i);
    }
    Program program = programWith(names);
    SystemTreeModel model(program.state, images());
    model.fill();
    QCOMPARE(model.rowCount(), SystemTreeModel::firstRows);
    QVERIFY(model.addMember({u"the last"_s, 1}));
    QCOMPARE(program.state.systemCount, std::int16_t{largest});
    QCOMPARE(model.rowCount(), largest);
    QVERIFY(!model.addMember({u"one too many"_s, 1}));
    QCOMPARE(program.state.systemCount, std::int16_t{largest});
    QCOMPARE(program.state.systemMembers.size(), std::size_t{largest});
    QCOMPARE(model.rowCount(), largest);
    QCOMPARE(model.index(2, 0, model.index(largest - 1, 0)).parent().row(), largest - 1);

    model.removeMember(model.index(0, 0));
    QCOMPARE(program.state.systemMembers.at(0).name, u"the last"_s);
    QCOMPARE(model.member(model.index(largest - 2, 0)).name, u"the last"_s);
    QCOMPARE(model.member(model.index(0, 0)).name, u"2"_s);
}

void TestSystemTreeModel::manyRowsComeInTwoParts() {
    constexpr int count = SystemTreeModel::firstRows + 3;
    QStringList names;
    for (int i = 0; i < count; ++i) {
        names << QString::number(i);
    }
    Program program = programWith(names);
    SystemTreeModel model(program.state, images());
    model.fill();
    // What is not shown yet counts all the same.
    model.removeMember(model.index(0, 0));
    QCOMPARE(program.state.systemMembers.at(0).name, u"1002"_s);
    QCOMPARE(model.rowCount(), SystemTreeModel::firstRows - 1);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    model.showAll();
    model.showAll(); // there is nothing more
    QCOMPARE(inserted.size(), 1);
    QCOMPARE(model.rowCount(), count - 1);
    QCOMPARE(model.index(count - 2, 0).data().toString(), u"Bioritmo di 1002"_s);
    QCOMPARE(model.index(0, 0).data().toString(), u"Bioritmo di 1"_s);
}

/// What is drawn is measured whole each time; the member keeps its name.
void TestSystemTreeModel::endlessNamesAreCut() {
    const QString name(65'000, u'x');
    const Fixture fixture({name});
    QVERIFY(fixture.branches().constFirst().startsWith(u"Bioritmo di xxx"_s));
    QVERIFY(fixture.branches().constFirst().size() < 1100);
    QCOMPARE(fixture.model.member(fixture.model.index(0, 0)).name, name);
}

} // namespace quor::test
