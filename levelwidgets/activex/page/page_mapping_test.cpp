// Which pages a control has, and which property is on which.
#include <levelwidgets/activex/identity/identifiers.h>
#include <levelwidgets/activex/object/native_guid.h>
#include <levelwidgets/activex/page/page_fixture.h>
#include <levelwidgets/controls/registry.h>

namespace levelwidgets::activex {
namespace {

using ::testing::ElementsAre;

class PageMappingTest : public PropertyPageTest {
 protected:
  static std::string NameOf(const GUID& page) {
    for (const PageIdentity& identity : PageIdentities()) {
      if (Native(identity.class_id) == page) return std::string(identity.page_name);
    }
    return "none";
  }
  std::vector<std::string> PagesOfComponent() {
    CAUUID pages = {};
    EXPECT_EQ(Interface<ISpecifyPropertyPages>()->GetPages(&pages), S_OK);
    std::vector<std::string> names;
    for (ULONG i = 0; i < pages.cElems; ++i) names.push_back(NameOf(pages.pElems[i]));
    ::CoTaskMemFree(pages.pElems);
    return names;
  }
  std::string PageOf(const char* property) {
    CLSID page = {};
    const HRESULT result =
        Interface<IPerPropertyBrowsing>()->MapPropertyToPage(IdOf(Object(), property), &page);
    return result == S_OK ? NameOf(page) : "0x" + std::to_string(result & 0xFFFF);
  }
};

TEST_F(PageMappingTest, EveryControlHasThePageOfItsNameAndAGridOneMore) {
  for (const ClassIdentity& identity : ClassIdentities()) {
    if (!FindControlClass(identity.class_name)) continue;
    const std::string name(identity.class_name);
    Site(name.c_str());
    if (name == "FlatGrid") {
      EXPECT_THAT(PagesOfComponent(), ElementsAre("ppFlatGrid", "ppFlatGridColumns"));
    } else {
      EXPECT_THAT(PagesOfComponent(), ElementsAre("pp" + name));
    }
    Close();
  }
}

TEST_F(PageMappingTest, APropertyIsOnThePageThatShowsIt) {
  Site("FlatGrid");
  EXPECT_EQ(PageOf("RowCount"), "ppFlatGrid");
  EXPECT_EQ(PageOf("Columns"), "ppFlatGridColumns");
  EXPECT_EQ(PageOf("Font"), "0x" + std::to_string(PERPROP_E_NOPAGEAVAILABLE & 0xFFFF));
  Close();
  Site("FlatTabStrip");
  EXPECT_EQ(PageOf("TabWidth"), "ppFlatTabStrip");
  EXPECT_EQ(PageOf("TabCaption"), "ppFlatTabStrip");
}

TEST_F(PageMappingTest, EveryPageThatAControlNamesCanBeMade) {
  for (const PageIdentity& identity : PageIdentities()) {
    EXPECT_TRUE(As<IPropertyPage>(MakeComponent(identity.page_name))) << identity.page_name;
  }
}

TEST_F(PageMappingTest, APageIsNoPartOfAnotherObject) {
  const auto outer = MakeComponent("FlatButton");
  void* made = this;
  EXPECT_EQ(MakeComponent("ppFlatButton", outer.Get(), IID_IUnknown, &made), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(made, nullptr);
}

}  // namespace
}  // namespace levelwidgets::activex
