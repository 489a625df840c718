#include "report/TestCompatibilityMatrix.h"

#include "report/CompatibilityMatrix.h"

#include <random>

namespace quor::test {

namespace {

using Pair = CompatibilityMatrix::Pair;

std::vector<SystemMember> membersBorn(const std::vector<int>& births) {
    std::vector<SystemMember> members;
    for (const int birth : births) {
        members.push_back({.name = {}, .birthDate = static_cast<DateValue>(birth)});
    }
    return members;
}

std::vector<Pair> pairsInOrder(const CompatibilityMatrix& matrix) {
    std::vector<Pair> all;
    matrix.visitInOrder([&](const auto& value, std::span<const Pair> pairs) {
        for (const Pair pair : pairs) {
            all.push_back(pair);
            if (value != matrix.at(pair)) {
                qFatal("a pair comes with another one's compatibility");
            }
        }
        return true;
    });
    return all;
}

} // namespace

void TestCompatibilityMatrix::everyPairIsTheWindows() {
    // One birth, and another one each number of days later, and as many earlier.
    std::mt19937 random(4); // NOLINT: the same in every run
    std::uniform_int_distribution<int> birth(-600'000, 600'000);
    for (int days = 0; days <= 33'000; ++days) {
        const int first = birth(random);
        const auto members = membersBorn({first, first + days, first - days});
        const CompatibilityMatrix matrix(members);
        const auto expected = compatibility(first, first + days);
        QCOMPARE(expected.has_value(), days <= 32'767);
        if (matrix.at({0, 1}) != expected || matrix.at({0, 2}) != expected) {
            QFAIL(qPrintable(QString::number(days)));
        }
    }
}

void TestCompatibilityMatrix::ordered() {
    std::mt19937 random(5); // NOLINT: the same in every run
    std::uniform_int_distribution<int> birth(0, 40'000);
    std::vector<int> births(300);
    std::ranges::generate(births, [&] { return birth(random); });
    const auto members = membersBorn(births);
    const CompatibilityMatrix matrix(members);
    const std::vector<Pair> pairs = pairsInOrder(matrix);
    QCOMPARE(pairs.size(), births.size() * (births.size() - 1) / 2);
    const auto place = [&](Pair pair) {
        const int apart = std::abs(births[pair.first] - births[pair.second]);
        const auto value = compatibility(0, apart);
        return std::tuple(value ? -value->overall : 1.0F, value ? apart : 0, pair.first,
                          pair.second);
    };
    for (std::size_t i = 1; i < pairs.size(); ++i) {
        QVERIFY(pairs[i].first < pairs[i].second);
        QVERIFY(place(pairs[i - 1]) < place(pairs[i])); // so none is there twice, either
    }
}

void TestCompatibilityMatrix::farBirthsComeLast() {
    const auto members = membersBorn({0, 32'768, 32'775, 32'767});
    const CompatibilityMatrix matrix(members);
    const std::vector<Pair> pairs = pairsInOrder(matrix);
    QCOMPARE(pairs.size(), std::size_t{6});
    QVERIFY(pairs[4] == (Pair{0, 1}));
    QVERIFY(pairs[5] == (Pair{0, 2}));
    QVERIFY(!matrix.at({0, 1}));
    QVERIFY(matrix.at({0, 3}));
}

void TestCompatibilityMatrix::tooManyAreNotCompared() {
    const std::vector<SystemMember> most(CompatibilityMatrix::maximumMembers);
    QCOMPARE(pairsInOrder(CompatibilityMatrix(most)).size(), std::size_t{1'999'000});
    const std::vector<SystemMember> tooMany(CompatibilityMatrix::maximumMembers + 1);
    QVERIFY(pairsInOrder(CompatibilityMatrix(tooMany)).empty());
}

void TestCompatibilityMatrix::nobodyAndOne() {
    QVERIFY(pairsInOrder(CompatibilityMatrix({})).empty());
    QVERIFY(pairsInOrder(CompatibilityMatrix(membersBorn({5}))).empty());
}

void TestCompatibilityMatrix::aVisitorMayStop() {
    const auto members = membersBorn({0, 1, 5});
    int visits = 0;
    CompatibilityMatrix(members).visitInOrder([&](const auto&, auto) {
        ++visits;
        return false;
    });
    QCOMPARE(visits, 1);
}

} // namespace quor::test
