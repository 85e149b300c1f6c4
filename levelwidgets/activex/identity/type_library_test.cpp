#include <levelwidgets/activex/identity/type_library.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/testing/source_dir.h>
#include <cctype>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

namespace levelwidgets {
namespace {

using ::testing::HasSubstr;

std::string CommittedIdl() {
  std::ifstream in(std::string(SourceDir()) + "/levelwidgets/activex/identity/levelwidgets.idl",
                   std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// The words outside of quotes.
std::set<std::string> NamesOf(const std::string& source) {
  std::set<std::string> names;
  std::string name;
  bool quoted = false;
  for (const char c : source) {
    if (c == '"') quoted = !quoted;
    if (!quoted && (std::isalnum(static_cast<unsigned char>(c)) || c == '_')) {
      name += c;
    } else if (!name.empty()) {
      names.insert(std::exchange(name, ""));
    }
  }
  return names;
}

TEST(TypeLibraryIdl, IsTheCommittedText) {
  EXPECT_EQ(CommittedIdl(), TypeLibraryIdl()) << "tools/update_docs writes it anew";
}

TEST(TypeLibraryIdl, ShowsIdentifiersNumbersTypesAndHelp) {
  const std::string idl = TypeLibraryIdl();
  EXPECT_THAT(idl,
              HasSubstr("[uuid(9466D224-2367-4381-9D9F-81D8788F9CF0), version(1.0), control, helpstring("));
  EXPECT_THAT(idl, HasSubstr("[id(1), propput, bindable, helpstring(\"Background colour.\")] "
                             "void BackColor([in] OLE_COLOR NewValue);\n"));
  EXPECT_THAT(idl,
              HasSubstr("helpstring(\"Text shown; \\\"&\\\" marks the access key.\")] BSTR Caption();\n"));
  EXPECT_THAT(idl, HasSubstr("propget, restricted, hidden, helpstring(\"The columns in order, one after the "
                             "other.\")] IUnknown* _NewEnum();\n"));
  EXPECT_THAT(idl, HasSubstr("[in, optional, defaultvalue(\"\")] BSTR Format, "));
  EXPECT_THAT(idl, HasSubstr("long HitTest([in] float X, [in] float Y, [out] long* ColIndex);\n"));
}

// Letter case does not count in a type library: the first spelling would stand for all.
TEST(TypeLibraryIdl, NoTwoNamesDifferInLetterCaseAlone) {
  std::map<std::string, std::string> spellings;
  for (const std::string& name : NamesOf(TypeLibraryIdl())) {
    std::string lower;
    for (const char c : name) lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    const auto [first, added] = spellings.try_emplace(lower, name);
    EXPECT_TRUE(added) << first->second << " and " << name;
  }
}

}  // namespace
}  // namespace levelwidgets
