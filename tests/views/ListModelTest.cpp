#include "Views/Qt/ListModel.h"

#include <gtest/gtest.h>

#include <string>

namespace orvelle {

struct Row {
    int id = 0;
    int value = 0;
    bool operator==(const Row&) const = default;
};

class ListModelTest : public testing::Test {
protected:
    ListModelTest() {
        using Model = QAbstractItemModel;
        QObject::connect(&model, &Model::rowsInserted, &model, [this] { steps += 'i'; });
        QObject::connect(&model, &Model::rowsRemoved, &model, [this] { steps += 'r'; });
        QObject::connect(&model, &Model::rowsMoved, &model, [this] { steps += 'm'; });
        QObject::connect(&model, &Model::dataChanged, &model, [this] { steps += 'c'; });
        QObject::connect(&model, &Model::modelReset, &model, [this] { steps += 'R'; });
        model.show({{1, 10}, {2, 20}, {3, 30}});
        steps.clear();
    }
    std::string stepsTo(const std::vector<Row>& rows) {
        steps.clear();
        model.show(rows);
        EXPECT_EQ(model.rows(), rows);
        return steps;
    }

    std::string steps;
    ListModel<Row> model;
};

TEST_F(ListModelTest, anEqualListIsNoStep) {
    EXPECT_EQ(stepsTo({{1, 10}, {2, 20}, {3, 30}}), "");
}

TEST_F(ListModelTest, aChangedRecordIsOneChange) {
    EXPECT_EQ(stepsTo({{1, 10}, {2, 21}, {3, 30}}), "c");
}

TEST_F(ListModelTest, aRemovedRecordIsOneRemoval) {
    EXPECT_EQ(stepsTo({{1, 10}, {3, 30}}), "r");
}

TEST_F(ListModelTest, aNewRecordIsOneInsertion) {
    EXPECT_EQ(stepsTo({{1, 10}, {4, 40}, {2, 20}, {3, 30}}), "i");
}

TEST_F(ListModelTest, theLastRecordPutFirstIsOneMove) {
    EXPECT_EQ(stepsTo({{3, 30}, {1, 10}, {2, 20}}), "m");
}

TEST_F(ListModelTest, ofRecordsThatShareAnIdAsManyStandAsAreGiven) {
    EXPECT_EQ(stepsTo({{1, 10}, {1, 10}, {2, 20}}), "ri");
    EXPECT_EQ(stepsTo({{1, 10}, {2, 20}}), "mr");
}

TEST_F(ListModelTest, everythingAtOnce) {
    EXPECT_EQ(stepsTo({{5, 50}, {3, 31}, {1, 10}}), "rimc");
    EXPECT_EQ(stepsTo({}), "rrr");
}

} // namespace orvelle
