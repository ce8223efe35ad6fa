#include <array>

#include "platform/foundation/Subclass.h"
#include "platform/foundation/method.h"
#include "platform/preferences/PSTextFieldSpecifier.h"
#include "platform/uikit/UIImage.h"
#include "tests/support/PaneTest.h"

namespace {

using testing::IsEmpty;

class ListedPane : public Subclass<ListedPane, PSListController> {
 public:
  static const ClassOf<ListedPane> classObject;
  PSSpecifiers load() { return loadSpecifiersFromPlistNameTarget("list", shared_from_this()); }

  std::optional<PropertyListValue> get(const PSSpecifier& /*row*/) { return kept; }
  void set(const PropertyListValue& value, const PSSpecifier& /*row*/) { kept = value; }
  std::optional<PropertyListValue> usualGet(const PSSpecifier& /*row*/) {
    return "usually got: " + textOrNothing(kept).value_or("");
  }
  void usualSet(const PropertyListValue& value, const PSSpecifier& /*row*/) {
    kept = "usually set: " + textOrNothing(value).value_or("");
  }

  std::optional<PropertyListValue> kept;
};

constexpr auto kListedPaneMethods =
    methods<ListedPane>(method<&ListedPane::get>("getIt:"), method<&ListedPane::set>("setIt:row:"),
                        method<&ListedPane::usualGet>("readPreferenceValue:"),
                        method<&ListedPane::usualSet>("setPreferenceValue:specifier:"));
constexpr ClassOf<ListedPane> ListedPane::classObject{"ListedPane", kListedPaneMethods};
constexpr std::array<const ClassDescription*, 1> kClasses{&ListedPane::classObject};

class SpecifierListTest : public PaneTest {
 protected:
  SpecifierListTest() { NSBundle::load(kBundle, ClassTable{kClasses}); }

  PSSpecifiers load(const PropertyListDictionary& resource) {
    files->dictionaries[std::string(kBundle) + "/list.plist"] = resource;
    return pane->load();
  }
  PSSpecifiers loadItem(const PropertyListDictionary& item) {
    return load({{"items", PropertyListArray{item}}});
  }

  std::shared_ptr<ListedPane> pane = allocInit<ListedPane>();
};

TEST_F(SpecifierListTest, AMissingListOrOneWithoutItemsGivesNoRows) {
  EXPECT_THAT(pane->load(), IsEmpty());
  EXPECT_THAT(load({{"title", "T"}}), IsEmpty());
  EXPECT_THAT(load({{"items", "text"}}), IsEmpty());
}

TEST_F(SpecifierListTest, ItemsThatAreNoDictionariesArePassedOver) {
  const auto rows =
      load({{"items", PropertyListArray{1, PropertyListDictionary{{"label", "a"}}, "x"}}});
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0]->name(), "a");
}

TEST_F(SpecifierListTest, TheListsTitleBecomesThePanes) {
  load({{"title", "QuietDial"}, {"items", PropertyListArray{}}});
  EXPECT_EQ(pane->title(), "QuietDial");
}

TEST_F(SpecifierListTest, EveryOtherEntryIsAPropertyWithItsOwnType) {
  const auto rows = loadItem({{"cell", "PSLinkCell"},
                              {"label", "a"},
                              {"id", "b"},
                              {"dynamicHeight", true},
                              {"default", 2},
                              {"ratio", 0.5}});
  EXPECT_EQ(rows[0]->cellType(), PSCellType::kLink);
  EXPECT_EQ(rows[0]->identifier(), "b");
  EXPECT_TRUE(rows[0]->plistForKey("dynamicHeight")->get<bool>());
  EXPECT_EQ(rows[0]->plistForKey("default"), PropertyListValue(2));
  EXPECT_TRUE(rows[0]->plistForKey("ratio")->get<double>());
  EXPECT_EQ(rows[0]->propertyForKey("label"), std::nullopt);
}

TEST_F(SpecifierListTest, EntriesOfTheWrongTypeAreAsIfAbsent) {
  const auto rows =
      loadItem({{"cell", 3}, {"label", PropertyListArray{}}, {"detail", true}, {"icon", 1}});
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0]->cellType(), PSCellType::kDefault);
  EXPECT_EQ(rows[0]->name(), "");
  EXPECT_EQ(rows[0]->detail(), "");
}

TEST_F(SpecifierListTest, ATextFieldGetsItsPlaceholderAndKeyboard) {
  const auto rows =
      loadItem({{"cell", "PSEditTextCell"}, {"placeholder", "Number"}, {"keyboard", "phone"}});
  const auto field = cast<PSTextFieldSpecifier>(rows[0]);
  ASSERT_TRUE(field);
  EXPECT_EQ(field->placeholder(), "Number");
  EXPECT_EQ(field->keyboardType(), UIKeyboardType::kPhonePad);
}

TEST_F(SpecifierListTest, ATextFieldHasItsLabelAndTheUsualKeyboardUnlessItSaysPhone) {
  const auto field = cast<PSTextFieldSpecifier>(
      loadItem({{"cell", "PSEditTextCell"}, {"label", "Text"}, {"keyboard", "other"}})[0]);
  ASSERT_TRUE(field);
  EXPECT_EQ(field->name(), "Text");
  EXPECT_EQ(field->keyboardType(), UIKeyboardType::kDefault);
}

TEST_F(SpecifierListTest, AGroupHasItsLabelAndProperties) {
  const auto row =
      loadItem({{"cell", "PSGroupCell"}, {"label", "Style"}, {"footerText", "Below"}})[0];
  EXPECT_EQ(row->cellType(), PSCellType::kGroup);
  EXPECT_EQ(row->name(), "Style");
  EXPECT_EQ(row->target(), nullptr);
  EXPECT_EQ(row->textForKey("footerText"), "Below");
}

TEST_F(SpecifierListTest, ARowIsGotAndSetByTheSelectorsThatItNames) {
  const auto row = loadItem({{"get", "getIt:"}, {"set", "setIt:row:"}})[0];
  row->setValue("x");
  EXPECT_EQ(row->value(), PropertyListValue("x"));
}

TEST_F(SpecifierListTest, ARowIsGotAndSetByTheUsualSelectorsUnlessItNamesOthers) {
  const auto row = loadItem({{"label", "a"}})[0];
  row->setValue("x");
  EXPECT_EQ(row->value(), PropertyListValue("usually got: usually set: x"));
}

TEST_F(SpecifierListTest, AnIconIsLoadedFromTheBundle) {
  pictures->sizes[std::string(kBundle) + "/icon@3x.png"] = {87, 87};
  const auto rows = loadItem({{"cell", "PSLinkCell"}, {"icon", "icon.png"}});
  const auto property = rows[0]->propertyForKey("iconImage");
  ASSERT_TRUE(property);
  const auto image = cast<UIImage>(std::get<std::shared_ptr<NSObject>>(*property));
  EXPECT_EQ(image->name(), "icon.png");
  EXPECT_EQ(image->size(), (CGSize{29, 29}));
}

TEST_F(SpecifierListTest, AnIconThatIsMissingLeavesTheRowWithoutOne) {
  EXPECT_EQ(loadItem({{"icon", "icon.png"}})[0]->propertyForKey("iconImage"), std::nullopt);
}

}  // namespace
