// What is reported about form files that are wrong, and that nothing of them is left.
#include <filesystem>
#include <fstream>

#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/testing/desktop_fixture.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace levelwidgets {
namespace {

namespace fs = std::filesystem;
using ::testing::EndsWith;
using ::testing::HasSubstr;

std::string Told(const LoadedForm& loaded) {
  std::string text;
  for (const Diagnostic& diagnostic : loaded.diagnostics) text += diagnostic.ToString() + "\n";
  return text;
}

// The fixture sees to it that no window, timer or drawing object of a broken form is left.
class BadFormFile : public testing::DesktopTest {
 protected:
  std::string Errors(const std::string& text) {
    const LoadedForm loaded = LoadFormText(Tracer(), text, "f");
    EXPECT_TRUE(loaded.HasErrors()) << text;
    EXPECT_FALSE(loaded.form);
    return Told(loaded);
  }
  // Of a form that is loaded all the same.
  std::string Warnings(const std::string& text) {
    const LoadedForm loaded = LoadFormText(Tracer(), text, "f");
    EXPECT_TRUE(loaded.form) << Told(loaded);
    if (loaded.form) {
      EXPECT_EQ(FormText(*loaded.form, loaded.document.get()), text);
    }
    return Told(loaded);
  }
};

const std::string kButton = "[form]\n[[control]]\nClass = \"FlatButton\"\nName = \"cmdA\"\n";

// --- The text ------------------------------------------------------------------------------------------

TEST_F(BadFormFile, AStringWithoutItsEndIsReportedWithWhatIsMissing) {
  const std::string missing =
      "; the string has no closing quote, or is one of several lines, which stands in three quotes\n";
  EXPECT_THAT(Errors("[form]\nName = \"a\n"),
              AllOf(::testing::StartsWith("f:2:10: syntax error in a string: "), EndsWith(missing)));
  EXPECT_THAT(Errors("[form]\nName = 'a\n"), EndsWith(missing));
  EXPECT_THAT(Errors("[form]\nName = \"a"), EndsWith(missing));
  EXPECT_THAT(Errors("[form]\nName = \"\"\"a\nb\n"), EndsWith(missing));
}

TEST_F(BadFormFile, CommonMistakesAreReportedWithWhatWouldBeRight) {
  EXPECT_EQ(Errors("[form]\nName = abc\n"),
            "f:2:8: syntax error in a value: could not determine value type; a text stands in quotes, other "
            "values are a number, true, false, a date, a list or a { table }\n");
  EXPECT_EQ(
      Errors("[form]\nName = \"C:\\dir\"\n"),
      "f:2:12: syntax error in a string: unknown escape sequence '\\d'; a backslash is written \\\\, or "
      "the string in single quotes\n");
  EXPECT_EQ(Errors("[form]\nX = True\n"),
            "f:2:5: syntax error in a boolean: expected 'true', saw 'T'; it is written in small letters\n");
  EXPECT_EQ(Errors("[form]\nFont = { Name = \"a\"\n"),
            "f:2:20: syntax error in an inline table: expected key or closing '}', saw '\\n'; a { table } "
            "stands on one line, a longer one is a [table] with a line for each key\n");
  EXPECT_EQ(Errors("<form>\n"),
            "f:1:1: syntax error in the file: expected keys, tables, whitespace or comments, saw '<'\n");
}

TEST_F(BadFormFile, DuplicateKeysAndTablesAreReported) {
  const std::string once = "; a key or table stands once, each control has a [[control]]\n";
  EXPECT_EQ(Errors("[form]\nName = \"a\"\nName = \"b\"\n"),
            "f:3:8: syntax error in a key-value pair: cannot redefine existing string 'Name'" + once);
  EXPECT_EQ(Errors("[form]\n[form]\n"),
            "f:2:1: syntax error in a table header: cannot redefine existing table 'form'" + once);
}

TEST_F(BadFormFile, ANulCharacterIsReported) {
  const std::string nul = "; there is a NUL character here, which no text has\n";
  EXPECT_THAT(Errors(std::string("[form]\n\0\0", 9)), AllOf(::testing::StartsWith("f:2:1: "), EndsWith(nul)));
  EXPECT_THAT(Errors(std::string("[form]\nName = \"a\0\"\n", 20)), EndsWith(nul));
}

TEST_F(BadFormFile, BytesThatAreNotUtf8AreReportedWithTheirOffset) {
  EXPECT_EQ(Errors("[form]\n\tCaption = \"\xC3\xA4\xFF\"\n"),
            "f:2:14: the text is not UTF-8: the byte 0xFF at offset 21 is no character\n");
  EXPECT_EQ(Errors(std::string("\xFF\xFE[\0f\0", 6)), "f:1:1: the text is UTF-16; a form file is UTF-8\n");
}

TEST_F(BadFormFile, ColumnsCountCharactersAfterTheByteOrderMark) {
  EXPECT_EQ(Errors("\xEF\xBB\xBF"
                   "form = 1\n"),
            "f:1:1: the form is a table of its own, begun with [form]\n");
  EXPECT_THAT(Errors("\xEF\xBB\xBF[form]\nCaption = \"\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\" x\n"),
              ::testing::StartsWith("f:2:17: "));
  EXPECT_THAT(Errors("\xEF\xBB\xBF[form]\n\t\tWidth\t= \"\xC3\xA4\" # x\n"),
              ::testing::StartsWith("f:2:11: Width is "));
  EXPECT_THAT(Errors("[form]\r\n\r\nCaption = 5\r\n"), ::testing::StartsWith("f:3:11: Caption is "));
}

TEST_F(BadFormFile, MessagesAreOneShortLineWhateverTheKeys) {
  EXPECT_EQ(Warnings("[form]\n\"a\\n\\u001b[31mb\" = 1\n"),
            "f:2:1: warning: a form has no key \"a\\u000A\\u001B[31mb\"\n");
  const std::string told = Warnings("[form]\n" + std::string(1'000'000, 'k') + " = 1\n");
  EXPECT_THAT(told, HasSubstr("kkk ... kkk"));
  EXPECT_LT(told.size(), 600u);
  EXPECT_LT(Errors("[form]\n\"" + std::string(1'000'000, 'k') + "\" = 1 2\n").size(), 600u);
}

TEST_F(BadFormFile, OfThousandsOfErrorsTheFirstThousandAreReported) {
  std::string text = "[form]\n";
  for (int i = 0; i < 1500; ++i) text += "k" + std::to_string(i) + " = 1\n";
  text += "[[control]]\n";
  const LoadedForm loaded = LoadFormText(Tracer(), text, "f");
  EXPECT_TRUE(loaded.HasErrors());
  ASSERT_EQ(loaded.diagnostics.size(), 1001u);
  EXPECT_EQ(loaded.diagnostics.back().ToString(), "f: and 2 more errors and 500 more warnings");
}

TEST_F(BadFormFile, EndlessNestingIsRefused) {
  std::string open;
  for (int i = 0; i < 1'000'000; ++i) open += i % 2 == 0 ? "{a=" : "[";
  EXPECT_THAT(Errors("[form]\nx = " + open), EndsWith("values are nested more than 64 deep\n"));
}

TEST_F(BadFormFile, EndlessDottedKeysAreRefusedQuickly) {
  std::string keys = "[form]\n";
  std::string tables = "[form]\n";
  for (int i = 0; i < 300'000; ++i) {
    keys += "k" + std::to_string(i) + ".a = 1\n";
    tables += "[[a.b]]\n";
  }
  EXPECT_EQ(Errors(keys), "f:100002:8: more than 100000 keys and headers with a dot are refused\n");
  EXPECT_EQ(Errors(tables), "f:100002:4: more than 100000 keys and headers with a dot are refused\n");
}

// --- Values ----------------------------------------------------------------------------------------------

TEST_F(BadFormFile, NumbersOutsideTheirRangeAreReportedAndNeverCut) {
  EXPECT_EQ(Errors(kButton + "TabIndex = 2147483648\nLeft = 1e39\nTop = nan\nWidth = inf\nHeight = -0.5\n"),
            "f:5:12: TabIndex is a whole number from -2147483648 to 2147483647; 2147483648 is out of range\n"
            "f:6:8: Left is a length in twips, a number; 1e39 is out of range\n"
            "f:7:7: Top is a length in twips, a number; nan is out of range\n"
            "f:8:9: Width is a length in twips, a number; inf is out of range\n"
            "f:9:10: Height cannot be negative; -0.5 is\n");
  EXPECT_THAT(Errors("[form]\nWidth = 99999999999999999999\n"), HasSubstr("is not representable in 64 bits"));
  EXPECT_EQ(
      Errors("[form]\n[[control]]\nClass = \"FlatScroll\"\nName = \"s\"\nProperties = { Max = 40000, Min = "
             "1.5 }\n"),
      "f:5:22: Max is a whole number from -32768 to 32767; 40000 is out of range\n"
      "f:5:35: Min is a whole number from -32768 to 32767; 1.5 is a number with a fraction\n");
}

TEST_F(BadFormFile, PlacesBeyondAnyScreenAreReported) {
  EXPECT_EQ(Errors("[form]\nWidth = 1e30\n[[control]]\nClass = \"FlatButton\"\nName = \"a\"\nLeft = -2e9\n"
                   "Height = 1000000100\n"),
            "f:2:9: Width is at most 1000000000 twips; 1e30 is too far\n"
            "f:6:8: Left is at most 1000000000 twips; -2e9 is too far\n"
            "f:7:10: Height is at most 1000000000 twips; 1000000100 is too far\n");
  EXPECT_EQ(Warnings("[form]\nWidth = 1e9\nHeight = 1e9\n[[control]]\nClass = \"FlatButton\"\nName = \"a\"\n"
                     "Left = -1e9\nTop = 1e9\nWidth = 1e9\nHeight = 1e9\n"),
            "");
}

TEST_F(BadFormFile, ColoursOfMoreThan32BitsAreReported) {
  EXPECT_EQ(Errors("[form]\nBackColor = 0x100000000\n"),
            "f:2:13: BackColor is a colour, 0x00BBGGRR or 0x80000000 plus the index of a system colour; "
            "0x100000000 is out of range\n");
  EXPECT_EQ(Errors("[form]\nBackColor = \"red\"\n"),
            "f:2:13: BackColor is a colour, 0x00BBGGRR or 0x80000000 plus the index of a system colour; "
            "\"red\" is a string\n");
  // As a number with a sign.
  EXPECT_EQ(Warnings("[form]\nBackColor = -2147483633\n"), "");
}

TEST_F(BadFormFile, DatesThatDoNotExistAreReported) {
  EXPECT_THAT(Errors("[form]\nX = 2024-02-30\n"),
              HasSubstr("expected day between 1 and 29 (inclusive), saw 30"));
  EXPECT_THAT(Errors("[form]\nX = 2024-13-01\n"), ::testing::StartsWith("f:2:12: syntax error in a date: "));
  EXPECT_EQ(Errors("[form]\nCaption = 2024-05-31T10:00:00Z\n"),
            "f:2:11: Caption is a string; 2024-05-31T10:00:00Z is a date with a time zone\n");
}

TEST_F(BadFormFile, WrongFontsAreReported) {
  EXPECT_EQ(Errors("[form]\nFont = { Name = 1, Bold = 1, Charset = 99999, Bald = true }\n"
                   "[[control]]\nClass = \"FlatButton\"\nName = \"a\"\n"
                   "Properties = { Font = { Name = \"Arial\", Size = -1 } }\n"
                   "[[control]]\nClass = \"FlatButton\"\nName = \"b\"\nProperties = { Font = \"Arial\" }\n"
                   "[[control]]\nClass = \"FlatButton\"\nName = \"c\"\nProperties.Font = { Null = true }\n"),
            "f:2:8: Font.Size is missing\n"
            "f:2:17: Font.Name is a string; 1 is a number\n"
            "f:2:27: Font.Bold is true or false; 1 is a number\n"
            "f:2:40: Font.Charset is a whole number from -32768 to 32767; 99999 is out of range\n"
            "f:2:47: warning: a font has no key \"Bald\"; did you mean \"Bold\"?\n"
            "f:6:48: Font.Size is more than 0; -1 is not\n"
            "f:10:23: Font is a font, such as { Name = \"Tahoma\", Size = 8.25 }; \"Arial\" is a string\n"
            "f:14:19: Font is a font, such as { Name = \"Tahoma\", Size = 8.25 }; { Null = true } is Null\n");
}

TEST_F(BadFormFile, NullIsReportedWhereItIsRefused) {
  EXPECT_EQ(Errors("[form]\nCaption = { Null = true }\nWidth = { Null = true }\n"),
            "f:2:11: Caption is a string; { Null = true } is Null\n"
            "f:3:9: Width is a length in twips, a number; { Null = true } is Null\n");
}

TEST_F(BadFormFile, NamesThatNoScriptCanUseAreReported) {
  EXPECT_EQ(
      Warnings("[form]\nName = \"My form\"\n"),
      "f:2:8: warning: no handler can be named after \"My form\": a name that a script can use is a letter "
      "or \"_\", then letters, digits and \"_\"\n");
}

// --- Nothing half applied --------------------------------------------------------------------------------

TEST_F(BadFormFile, UnknownKeysSurviveASave) {
  const std::string text =
      "Version = 2\n[form]\nLocked = true\n[[control]]\nClass = \"FlatButton\"\nName = \"a\"\nColour = 'x'\n"
      "Properties = { Mine = [1, { x = 2 }], Caption = \"A\" }\n[extra]\ny = 1\n";
  const LoadedForm loaded = LoadFormText(Tracer(), text, "f");
  ASSERT_TRUE(loaded.form);
  EXPECT_EQ(loaded.diagnostics.size(), 5u) << Told(loaded);
  loaded.form->Find("a")->SetLeft(Twips(120));
  loaded.form->SetCaption("C");
  EXPECT_EQ(
      FormText(*loaded.form, loaded.document.get()),
      "Version = 2\n[form]\nLocked = true\nCaption = \"C\"\n[[control]]\nClass = \"FlatButton\"\nName = "
      "\"a\"\nColour = 'x'\nProperties = { Mine = [1, { x = 2 }], Caption = \"A\" }\nLeft = 120\n[extra]\ny "
      "= "
      "1\n");
}

TEST_F(BadFormFile, NothingIsLeftOfAFormWithOneErrorInItsLastControl) {
  const auto counts = [this] {
    return std::vector{Driver().LiveWindows(), Driver().LiveTimers(), Driver().LiveObjects()};
  };
  const std::vector<std::size_t> before = counts();
  std::string text = "[form]\n";
  int number = 0;
  for (const ClassInfo* control : ControlClasses()) {
    text += "[[control]]\nClass = \"" + std::string(control->Name()) + "\"\nName = \"c" +
            std::to_string(++number) + "\"\n";
  }
  {
    const LoadedForm whole = LoadFormText(Tracer(), text, "f");
    ASSERT_TRUE(whole.form) << Told(whole);
    EXPECT_GT(Driver().LiveWindows(), before[0]);
  }
  EXPECT_EQ(counts(), before);
  EXPECT_THAT(Errors(text + "Left = \"x\"\n"),
              HasSubstr("Left is a length in twips, a number; \"x\" is a string"));
  EXPECT_EQ(counts(), before);
}

// --- Files -------------------------------------------------------------------------------------------------

class BadFormFileOnDisk : public BadFormFile {
 protected:
  void SetUp() override {
    BadFormFile::SetUp();
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    const auto seed = std::to_string(::testing::UnitTest::GetInstance()->start_timestamp());
    folder_ = fs::path(::testing::TempDir()) / ("bad_form_" + seed + test->name());
    fs::create_directories(folder_);
  }
  void TearDown() override {
    fs::remove_all(folder_);
    BadFormFile::TearDown();
  }
  void Put(const std::string& name, const std::string& text) {
    std::ofstream(folder_ / name, std::ios::binary) << text;
  }
  // Without the folder before the file's name.
  std::string ToldOf(const fs::path& path) {
    std::string told = Told(LoadForm(Tracer(), path.string()));
    const std::string prefix = (folder_ / "").string();
    return told.starts_with(prefix) ? told.substr(prefix.size()) : told;
  }
  fs::path folder_;
};

TEST_F(BadFormFileOnDisk, AnEmptyFileIsReported) {
  Put("f", "");
  EXPECT_EQ(ToldOf(folder_ / "f"), "f: the file is empty: a form file begins with a [form] table\n");
}

TEST_F(BadFormFileOnDisk, AHugeFormIsRefusedUnread) {
  Put("f", "");
  fs::resize_file(folder_ / "f", 100'000'000);
  EXPECT_EQ(ToldOf(folder_ / "f"),
            "f: the form file cannot be read: it has 100,000,000 bytes; at most 16,777,216 are taken\n");
}

TEST_F(BadFormFileOnDisk, AHugeScriptIsRefusedUnread) {
  Put("f", "[form]\nScript = \"huge.lua\"\n");
  Put("huge.lua", "");
  fs::resize_file(folder_ / "huge.lua", 100'000'000);
  EXPECT_EQ(ToldOf(folder_ / "f"),
            "f:2:10: the script \"huge.lua\" has 100000000 bytes; at most 16777216 are taken\n");
}

TEST_F(BadFormFileOnDisk, AScriptNameWithANulCharacterIsRefused) {
  Put("a", "");
  Put("f", "[form]\nScript = \"a\\u0000.lua\"\n");
  EXPECT_EQ(ToldOf(folder_ / "f"),
            "f:2:10: Script is the name of a file beside the form; \"a\\u0000.lua\" is none\n");
}

#ifndef _WIN32

TEST_F(BadFormFileOnDisk, PipesAndDevicesAreRefusedAtOnce) {
  ASSERT_EQ(::mkfifo((folder_ / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(ToldOf(folder_ / "pipe"),
            "pipe: the form file cannot be read: it is a pipe or a device, not an ordinary file\n");
  EXPECT_EQ(ToldOf("/dev/zero"),
            "/dev/zero: the form file cannot be read: it is a pipe or a device, not an ordinary file\n");
  Put("f", "[form]\nScript = \"pipe\"\n");
  EXPECT_EQ(ToldOf(folder_ / "f"),
            "f:2:10: the script \"pipe\" is a folder or a device, not an ordinary file\n");
}

#endif

}  // namespace
}  // namespace levelwidgets
