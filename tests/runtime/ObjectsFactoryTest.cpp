#include "runtime/ObjectsFactory.h"

#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Runtime;

constexpr const char* toneClass = "{5F0A2C54-3B1D-4A55-9C2E-7C6C0A4D2F11}";
constexpr const char* noiseClass = "{A8E1B7D2-90F3-4C4E-8C55-0D3D1B0E6F22}";
constexpr const char* soundInterface = "{0C1E2D3F-4455-4667-8899-AABBCCDDEEFF}";

class ISound : public virtual IDynamicObject {
public:
    virtual std::string GetName() const = 0;
};

class CTone : public ISound {
public:
    std::string GetName() const override { return "tone"; }
};

class CNoise : public ISound {
public:
    std::string GetName() const override { return "noise"; }
};

TRegisteredObjectFactory<CTone, ISound> toneFactory(toneClass, soundInterface);
TRegisteredObjectFactory<CNoise, ISound> noiseFactory(noiseClass, soundInterface);
TRegisteredObjectFactory<CTone, CTone> sameIdFactory(toneClass, toneClass);

std::string NameOf(IDynamicObject* created) {
    const std::unique_ptr<IDynamicObject> owner(created);
    const auto* sound = dynamic_cast<const ISound*>(owner.get());
    return sound ? sound->GetName() : "(none)";
}

// Made while globals are initialised: the registry works before main.
const std::string nameMadeBeforeMain =
    NameOf(CObjectsFactory::Instance().CreateObject(noiseClass, soundInterface));

TEST(ObjectsFactoryTest, MakesTheClassThatWasRegistered) {
    CObjectsFactory& factory = CObjectsFactory::Instance();
    EXPECT_EQ(NameOf(factory.CreateObject(toneClass, soundInterface)), "tone");
    EXPECT_EQ(NameOf(factory.CreateObject(noiseClass, soundInterface)), "noise");
}

TEST(ObjectsFactoryTest, IsUsableBeforeMain) { EXPECT_EQ(nameMadeBeforeMain, "noise"); }

TEST(ObjectsFactoryTest, RightClassWithTheWrongInterfaceGivesNull) {
    EXPECT_EQ(CObjectsFactory::Instance().CreateObject(toneClass, noiseClass), nullptr);
}

TEST(ObjectsFactoryTest, UnknownEmptyAndNullIdsGiveNull) {
    CObjectsFactory& factory = CObjectsFactory::Instance();
    EXPECT_EQ(factory.CreateObject("unknown", soundInterface), nullptr);
    EXPECT_EQ(factory.CreateObject("", ""), nullptr);
    EXPECT_EQ(factory.CreateObject(nullptr, soundInterface), nullptr);
    EXPECT_EQ(factory.CreateObject(toneClass, nullptr), nullptr);
    EXPECT_EQ(factory.CreateObject(nullptr), nullptr);
}

TEST(ObjectsFactoryTest, OneIdServesForBoth) {
    CObjectsFactory& factory = CObjectsFactory::Instance();
    EXPECT_EQ(NameOf(factory.CreateObject(toneClass)), "tone");
    EXPECT_EQ(factory.CreateObject(noiseClass), nullptr);
}

TEST(ObjectsFactoryTest, FactoryChecksTheIdsItselfEvenWhenTheKeyMatches) {
    // "a-b" with "c" and "a" with "b-c" make the same key; the factory knows its own pair.
    static TObjectFactory<CTone, ISound> factory("a-b", "c");
    ASSERT_TRUE(CObjectsFactory::Register("a-b", "c", &factory));
    EXPECT_EQ(NameOf(CObjectsFactory::Instance().CreateObject("a-b", "c")), "tone");
    EXPECT_EQ(CObjectsFactory::Instance().CreateObject("a", "b-c"), nullptr);
    EXPECT_EQ(factory.CreateObject(nullptr, "c"), nullptr);
    EXPECT_EQ(factory.CreateObject("a-b", nullptr), nullptr);
}

TEST(ObjectsFactoryTest, LaterRegistrationReplacesTheEarlier) {
    static TObjectFactory<CTone, ISound> first("replaced", "sound");
    static TObjectFactory<CNoise, ISound> second("replaced", "sound");
    EXPECT_TRUE(CObjectsFactory::Register("replaced", "sound", &first));
    EXPECT_TRUE(CObjectsFactory::Register("replaced", "sound", &second));
    EXPECT_EQ(NameOf(CObjectsFactory::Instance().CreateObject("replaced", "sound")), "noise");
}

TEST(ObjectsFactoryTest, RegistrationOfNullFails) {
    static TObjectFactory<CTone, ISound> factory("n", "n");
    EXPECT_FALSE(CObjectsFactory::Register(nullptr, "n", &factory));
    EXPECT_FALSE(CObjectsFactory::Register("n", nullptr, &factory));
    EXPECT_FALSE(CObjectsFactory::Register("n", "n", nullptr));
    EXPECT_EQ(CObjectsFactory::Instance().CreateObject("n"), nullptr);
}

} // namespace
