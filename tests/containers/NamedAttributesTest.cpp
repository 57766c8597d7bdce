#include "containers/NamedAttributes.h"

#include <map>
#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Containers;

std::map<std::string, std::string> ContentOf(const IConstNamedAttributes& attributes) {
    std::map<std::string, std::string> content;
    const std::unique_ptr<IConstIterator<CNamedAttribute>> iterator(attributes.CreateIterator());
    for (; !iterator->IsAtEnd(); iterator->Next()) {
        content[iterator->Get().GetName()] = iterator->Get().GetValue();
    }
    return content;
}

TEST(NamedAttributesTest, ValuesAreFoundByName) {
    CNamedAttributes attributes;
    attributes.SetValue("width", "10");
    attributes.SetValue("height", "20");
    EXPECT_EQ(attributes.GetCount(), 2);
    EXPECT_STREQ(attributes.GetValue("width"), "10");
    EXPECT_STREQ(attributes.GetValue("height"), "20");
    attributes.SetValue("width", "11");
    EXPECT_EQ(attributes.GetCount(), 2);
    EXPECT_STREQ(attributes.GetValue("width"), "11");
}

TEST(NamedAttributesTest, NullAndAbsentNamesGiveNull) {
    CNamedAttributes attributes;
    EXPECT_EQ(attributes.GetValue("width"), nullptr);
    attributes.SetValue("width", "10");
    EXPECT_EQ(attributes.GetValue(nullptr), nullptr);
    EXPECT_EQ(attributes.GetValue("Width"), nullptr);
    EXPECT_EQ(attributes.GetValue(""), nullptr);
}

TEST(NamedAttributesTest, EmptyNameAndEmptyTextAreOrdinary) {
    CNamedAttributes attributes;
    attributes.SetValue("", "of the empty name");
    attributes.SetValue("empty", "");
    EXPECT_STREQ(attributes.GetValue(""), "of the empty name");
    EXPECT_STREQ(attributes.GetValue("empty"), "");
}

TEST(NamedAttributesTest, NullValueRemovesAndNullNameDoesNothing) {
    CNamedAttributes attributes;
    attributes.SetValue("a", "1");
    attributes.SetValue(nullptr, "2");
    EXPECT_EQ(attributes.GetCount(), 1);
    attributes.SetValue("a", nullptr);
    EXPECT_EQ(attributes.GetCount(), 0);
    EXPECT_EQ(attributes.GetValue("a"), nullptr);
}

TEST(NamedAttributesTest, RemoveTellsWhetherTheNameWasThere) {
    CNamedAttributes attributes;
    attributes.SetValue("a", "1");
    EXPECT_FALSE(attributes.Remove("b"));
    EXPECT_FALSE(attributes.Remove(nullptr));
    EXPECT_TRUE(attributes.Remove("a"));
    EXPECT_FALSE(attributes.Remove("a"));
}

TEST(NamedAttributesTest, TextsAreCopies) {
    CNamedAttributes attributes;
    std::string name = "name";
    std::string value = "value";
    attributes.SetValue(name.c_str(), value.c_str());
    name[0] = value[0] = 'x';
    EXPECT_STREQ(attributes.GetValue("name"), "value");
    attributes.SetValue("name", attributes.GetValue("name") + 2);
    EXPECT_STREQ(attributes.GetValue("name"), "lue");
}

TEST(NamedAttributesTest, IteratorMeetsEveryAttributeAndCanStartAgain) {
    CNamedAttributes attributes;
    std::map<std::string, std::string> expected;
    for (int number = 0; number < 50; ++number) {
        const std::string name = "name" + std::to_string(number);
        attributes.SetValue(name.c_str(), std::to_string(number).c_str());
        expected[name] = std::to_string(number);
    }
    EXPECT_EQ(ContentOf(attributes), expected);

    const std::unique_ptr<IIterator<CNamedAttribute>> iterator(attributes.CreateIterator());
    const std::string first = iterator->Get().GetName();
    while (!iterator->IsAtEnd()) {
        iterator->Next();
    }
    iterator->Next(); // stays at the end
    EXPECT_TRUE(iterator->IsAtEnd());
    iterator->Reset();
    EXPECT_EQ(iterator->Get().GetName(), first);
}

TEST(NamedAttributesTest, IteratorOfAnEmptyTableStandsAtTheEnd) {
    CNamedAttributes attributes;
    const std::unique_ptr<IIterator<CNamedAttribute>> iterator(attributes.CreateIterator());
    EXPECT_TRUE(iterator->IsAtEnd());
}

TEST(NamedAttributesTest, IteratorCanSetTheValueItStandsOn) {
    CNamedAttributes attributes;
    attributes.SetValue("a", "1");
    const std::unique_ptr<IIterator<CNamedAttribute>> iterator(attributes.CreateIterator());
    iterator->Get().SetValue("2");
    EXPECT_STREQ(attributes.GetValue("a"), "2");
}

TEST(NamedAttributesTest, SetReplacesTheWholeTable) {
    CNamedAttributes source;
    source.SetValue("a", "1");
    CNamedAttributes target;
    target.SetValue("b", "2");
    target.Set(source);
    EXPECT_EQ(ContentOf(target), (std::map<std::string, std::string>{{"a", "1"}}));
    target.Set(target);
    EXPECT_EQ(target.GetCount(), 1);
}

TEST(NamedAttributesTest, GetMergesIntoTheTarget) {
    CNamedAttributes source;
    source.SetValue("a", "1");
    source.SetValue("b", "2");
    CNamedAttributes target;
    target.SetValue("b", "old");
    target.SetValue("c", "3");
    source.Get(target);
    EXPECT_EQ(ContentOf(target),
              (std::map<std::string, std::string>{{"a", "1"}, {"b", "2"}, {"c", "3"}}));
    source.Get(source);
    EXPECT_EQ(source.GetCount(), 2);
}

TEST(NamedAttributesTest, CopiesAreIndependent) {
    CNamedAttributes original;
    original.SetValue("a", "1");
    CNamedAttributes copy(original);
    copy.SetValue("a", "2");
    EXPECT_STREQ(original.GetValue("a"), "1");
    original = copy;
    copy.Clear();
    EXPECT_STREQ(original.GetValue("a"), "2");
}

} // namespace
