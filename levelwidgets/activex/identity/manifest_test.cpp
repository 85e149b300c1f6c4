#include <levelwidgets/activex/identity/manifest.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>

#include <levelwidgets/activex/identity/component_classes.h>
#include <levelwidgets/testing/source_dir.h>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct Element {
  std::string name;
  std::map<std::string, std::string> attributes;
  std::vector<std::string> inside;  // of what it is
};

// The elements of the text in their order. What is opened and not closed, or closed and not opened, fails.
std::vector<Element> ElementsOf(const std::string& xml) {
  std::vector<Element> elements;
  std::vector<std::string> open;
  const std::regex tag("<(/?)([A-Za-z]+)((?: [A-Za-z0-9]+=\"[^\"<>]*\")*)(/?)>");
  const std::regex attribute(" ([A-Za-z0-9]+)=\"([^\"]*)\"");
  for (std::sregex_iterator at(xml.begin(), xml.end(), tag), end; at != end; ++at) {
    const std::string name = (*at)[2];
    if ((*at)[1].length() > 0) {
      EXPECT_FALSE(open.empty());
      EXPECT_EQ(open.empty() ? "" : open.back(), name);
      if (!open.empty()) open.pop_back();
      continue;
    }
    Element element{name, {}, open};
    const std::string attributes = (*at)[3];
    for (std::sregex_iterator each(attributes.begin(), attributes.end(), attribute); each != end; ++each) {
      EXPECT_TRUE(element.attributes.try_emplace((*each)[1], (*each)[2]).second) << name;
    }
    elements.push_back(element);
    if ((*at)[4].length() == 0) open.push_back(name);
  }
  EXPECT_THAT(open, IsEmpty());
  return elements;
}

std::vector<Element> Named(const std::vector<Element>& elements, const std::string& name) {
  std::vector<Element> found;
  for (const Element& element : elements) {
    if (element.name == name) found.push_back(element);
  }
  return found;
}

TEST(LibraryManifest, IsTheCommittedText) {
  for (const int bits : {64, 32}) {
    std::ifstream in(
        std::string(SourceDir()) + "/levelwidgets/activex/identity/" + AssemblyName(bits) + ".manifest",
        std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    EXPECT_EQ(text.str(), LibraryManifest(bits)) << "tools/update_docs writes it anew";
  }
}

TEST(LibraryManifest, NamesTheLibraryOfItsBitness) {
  for (const auto& [bits, name, file, architecture] :
       {std::tuple{64, "LevelWidgets.x64", "levelwidgets_x64.dll", "amd64"},
        std::tuple{32, "LevelWidgets.x86", "levelwidgets_x86.dll", "x86"}}) {
    const auto elements = ElementsOf(LibraryManifest(bits));
    const auto identities = Named(elements, "assemblyIdentity");
    ASSERT_EQ(identities.size(), 1u);
    EXPECT_EQ(identities[0].attributes,
              (std::map<std::string, std::string>{{"type", "win32"},
                                                  {"name", name},
                                                  {"version", "1.0.0.0"},
                                                  {"processorArchitecture", architecture}}));
    ASSERT_EQ(Named(elements, "file").size(), 1u);
    EXPECT_EQ(Named(elements, "file")[0].attributes.at("name"), file);
    EXPECT_THAT(DependencyText(bits), HasSubstr("name=\"" + std::string(name) + "\" version=\"1.0.0.0\""));
  }
}

TEST(LibraryManifest, HasEveryClassThatUsersMayMakeAndEveryPage) {
  const auto elements = ElementsOf(LibraryManifest(64));
  const auto classes = Named(elements, "comClass");
  std::map<std::string, std::map<std::string, std::string>> expected;
  for (const ComponentClass& each : ComponentClasses()) {
    if (!each.Creatable()) continue;
    auto& attributes = expected[TextOf(each.identity->class_id)];
    attributes = {{"clsid", TextOf(each.identity->class_id)},
                  {"threadingModel", "Apartment"},
                  {"description", "LevelWidgets " + std::string(each.info->Name())},
                  {"tlbid", "{9466D224-2367-4381-9D9F-81D8788F9CF0}"},
                  {"progid", each.info->QualifiedName() + ".1"}};
    if (!each.is_control) continue;
    attributes["miscStatusContent"] =
        each.info->Name() == "FlatButton"
            ? "recomposeonresize,cantlinkinside,insideout,activatewhenvisible,actslikebutton,"
              "setclientsitefirst"
            : "recomposeonresize,cantlinkinside,insideout,activatewhenvisible,setclientsitefirst";
  }
  for (const PageIdentity& page : PageIdentities()) {
    expected[TextOf(page.class_id)] = {{"clsid", TextOf(page.class_id)},
                                       {"threadingModel", "Apartment"},
                                       {"description", "LevelWidgets " + std::string(page.page_name)}};
  }
  EXPECT_EQ(classes.size(), expected.size());
  for (const Element& each : classes) {
    EXPECT_EQ(each.attributes, expected[each.attributes.at("clsid")]);
    EXPECT_THAT(each.inside, ElementsAre("assembly", "file"));
  }
}

TEST(LibraryManifest, HasTheNamesWithoutAVersionToo) {
  const std::string manifest = LibraryManifest(64);
  EXPECT_EQ(Named(ElementsOf(manifest), "progid").size(), 11u);
  EXPECT_THAT(manifest, HasSubstr("progid=\"LevelWidgets.FlatGrid.1\" "));
  EXPECT_THAT(manifest, HasSubstr("<progid>LevelWidgets.FlatGrid</progid>"));
}

TEST(LibraryManifest, HasTheTypeLibraryAndItsInterfaces) {
  const auto elements = ElementsOf(LibraryManifest(64));
  const auto libraries = Named(elements, "typelib");
  ASSERT_EQ(libraries.size(), 1u);
  EXPECT_EQ(libraries[0].attributes.at("tlbid"), "{9466D224-2367-4381-9D9F-81D8788F9CF0}");
  EXPECT_EQ(libraries[0].attributes.at("version"), "1.0");
  EXPECT_THAT(libraries[0].inside, ElementsAre("assembly", "file"));
  std::map<std::string, std::string> interfaces;
  for (const Element& each : Named(elements, "comInterfaceExternalProxyStub")) {
    interfaces[each.attributes.at("iid")] = each.attributes.at("name");
    EXPECT_EQ(each.attributes.at("proxyStubClsid32"), "{00020420-0000-0000-C000-000000000046}");
    EXPECT_THAT(each.inside, ElementsAre("assembly"));
  }
  std::map<std::string, std::string> expected;
  for (const ComponentClass& each : ComponentClasses()) {
    const std::string name(each.info->Name());
    expected[TextOf(each.identity->interface_id)] = "_" + name;
    if (!each.info->Events().empty()) expected[TextOf(each.identity->events_id)] = "__" + name;
  }
  EXPECT_EQ(interfaces, expected);
}

}  // namespace
}  // namespace levelwidgets
