#include "infofields/FieldTexts.h"
#include "infofields/PKC_InfoFieldText.h"
#include "infofields/PKC_PanelInfoFieldDescList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <vector>

// Random lists, changed through their own functions and directly, against the rules written out over plain values.

namespace
{

struct PlainField {
    int id;
    PKC_InfoFieldDesc::Size size;
};

class PlainList
{
public:
    int insert(int id, PKC_InfoFieldDesc::Size size, int beforeId)
    {
        if (id == endId || id == firstId) {
            id = -1;
            while (has(id))
                --id;
        }
        const bool hasCustom = std::any_of(fields.begin(), fields.end(),
            [](const PlainField &field) { return field.size == PKC_InfoFieldDesc::CUSTOM; });
        fields.insert(placeOf(beforeId), {id, hasCustom ? PKC_InfoFieldDesc::CUSTOM : size});
        return id;
    }

    bool has(int id) const
    {
        return std::any_of(fields.begin(), fields.end(), [id](const PlainField &field) { return field.id == id; });
    }

    std::vector<PlainField>::iterator placeOf(int id)
    {
        if (id == endId)
            return fields.end();
        if (id == firstId)
            return fields.begin();
        return std::find_if(fields.begin(), fields.end(), [id](const PlainField &field) { return field.id == id; });
    }

    std::vector<PlainField> fields;
};

std::string textOf(const PlainList &list)
{
    std::string text;
    for (const PlainField &field : list.fields)
        text += std::to_string(field.id) + "/" + std::to_string(field.size) + " ";
    return text;
}

std::string plainTextOf(const PKC_InfoFieldList &list)
{
    std::string text;
    for (const UT_SharedPtr<PKC_InfoField> &field : list)
        text += std::to_string(field->id()) + "/" + std::to_string(field->size()) + " ";
    return text;
}

class Script
{
public:
    explicit Script(unsigned int seed) : m_random(seed) {}

    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned int>(limit)); }

    /// One that is there, that is not, or that means a place.
    int id()
    {
        const int kind = below(6);
        return kind == 0 ? endId : kind == 1 ? firstId : below(14) - 7;
    }

    /// Seldom custom, since that is for good.
    PKC_InfoFieldDesc::Size size() { return PKC_InfoFieldDesc::Size(below(40) == 0 ? 3 : below(3)); }

    void step(PKC_InfoFieldList &list, PlainList &plain)
    {
        const int at = plain.fields.empty() ? 0 : below(static_cast<int>(plain.fields.size()));
        const auto place = std::next(list.begin(), at);
        const auto plainPlace = plain.fields.begin() + at;
        const int action = plain.fields.empty() ? 9 : below(10);
        if (action == 0) {
            list.erase(place);
            plain.fields.erase(plainPlace);
        } else if (action == 1) {
            (*place)->setId(plainPlace->id = below(14) - 7);
        } else if (action == 2) {
            (*place)->setSize(plainPlace->size = size());
        } else if (action == 3) {
            const int id = below(14) - 7;
            list.insert(place, new PKC_InfoFieldText(id, QString(), QString()));
            plain.fields.insert(plainPlace, {id, PKC_InfoFieldDesc::DEFAULT});
        } else {
            const int id = this->id();
            const int beforeId = this->id();
            const PKC_InfoFieldDesc::Size size = this->size();
            EXPECT_EQ(list.insertInfoField(PKC_InfoFieldDesc::TEXT, QString(), id, size, 16, QString(), beforeId),
                plain.insert(id, size, beforeId));
        }
    }

private:
    std::mt19937 m_random;
};

} // namespace

TEST(FieldInsertion, FollowsItsRulesInRandomLists)
{
    for (unsigned int seed = 1; seed <= 300; ++seed) {
        Script script(seed);
        PKC_InfoFieldList list;
        PlainList plain;
        for (int step = 0; step < 40; ++step) {
            script.step(list, plain);
            ASSERT_EQ(plainTextOf(list), textOf(plain)) << "seed " << seed << ", step " << step;
        }
    }
}

TEST(FieldInsertion, OfManyExtraFieldsIsThatOfEachInTurn)
{
    for (unsigned int seed = 1; seed <= 300; ++seed) {
        Script script(seed);
        PKC_InfoFieldList list;
        PlainList plain;
        for (int step = 0; step < 12; ++step)
            script.step(list, plain);
        PKC_ExtraInfoFieldDescList extras;
        for (int count = script.below(12); count > 0; --count)
            extras.emplace_back(PKC_InfoFieldDesc::TEXT, QString(), script.id());

        list.reserveExtraInfoFields(extras);
        for (const PKC_ExtraInfoFieldDesc &extra : extras)
            plain.insert(endId, PKC_InfoFieldDesc::DEFAULT, extra.position());

        ASSERT_EQ(plainTextOf(list), textOf(plain)) << "seed " << seed;
    }
}

TEST(FieldInsertion, ChoosesTheFirstFreeIdOfRandomOnes)
{
    for (unsigned int seed = 1; seed <= 300; ++seed) {
        Script script(seed);
        PKC_InfoFieldList fields;
        PKC_PanelInfoFieldDescList descs;
        std::set<int> used;
        for (int count = script.below(12); count > 0; --count) {
            const int id = script.id();
            used.insert(id);
            fields.push_back(new PKC_InfoFieldText(id, QString(), QString()));
            descs.add(PKC_InfoFieldDesc::TEXT, id, QString(), PKC_InfoFieldDesc::DEFAULT, 16);
        }
        int local = -1;
        while (used.count(local) > 0)
            --local;
        int global = 0;
        while (used.count(global) > 0)
            ++global;
        ASSERT_EQ(fields.getUniqId(), local) << "seed " << seed;
        ASSERT_EQ(descs.getUniqId(), global) << "seed " << seed;
    }
}
