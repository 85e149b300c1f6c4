#include <levelwidgets/activex/identity/identifiers.h>

#include <algorithm>

namespace levelwidgets {

namespace {

// Random once, and the same ever since.
constexpr ClassIdentity kClasses[] = {
    {"FlatButton", "{E975254E-2CE4-4229-9737-8A2C9E493AE1}"_guid,
     "{3AF7D5EF-2E93-46B4-960A-6E50519AAE2C}"_guid, "{E8DC6C5F-8AFB-4166-BF8C-D54065E14D0D}"_guid},
    {"FlatCalculator", "{C6289273-252E-4B2B-BFD6-5D020CA62ADE}"_guid,
     "{E3689F6B-FDAA-4209-BDD7-FD8994A732BA}"_guid, "{42F82D2D-90E0-474F-B3BF-468B60DD3AB6}"_guid},
    {"FlatCalendar", "{3EA9D220-2028-435A-BF4E-68E720EFDC49}"_guid,
     "{5FCB73E0-D127-4CD9-A2B3-7550D26E354D}"_guid, "{EEF5C1E4-1CEE-4CEC-81BD-7823D5ABC547}"_guid},
    {"FlatDropDown", "{2DB8A8DB-2068-49C3-AC00-1447B51D2FDE}"_guid,
     "{715DBA27-B997-4646-BC51-7C4100483716}"_guid, "{48EA983D-8025-489D-BC98-A162E47BCE21}"_guid},
    {"FlatGrid", "{89878AB8-E11C-433D-AB77-AF2AB3D92F47}"_guid, "{AF0B49CB-F702-46A3-91B6-C95FF7B029BF}"_guid,
     "{6D9EAC55-7269-493B-8470-D1E406E1DE3E}"_guid},
    {"FlatLabel", "{108D02BB-7DD1-4388-B5B4-49811A4EBB1C}"_guid,
     "{3AE6CC87-3610-46B6-BE0F-8BEE07495754}"_guid, "{81488141-B7E3-4C01-BBD2-6D0BD2068664}"_guid},
    {"FlatScroll", "{A14E3FA0-D9DD-405D-BCBA-E6CC9779B3AF}"_guid,
     "{5A512D9F-DE2F-4AC9-A15E-9C62DD2B4E7D}"_guid, "{F3E2448B-64FF-4DD9-8E8C-E5627FAC895D}"_guid},
    {"FlatTabStrip", "{03EEBAA6-508C-4710-B644-206FF1274F2B}"_guid,
     "{C717A63D-21E7-4E12-AE88-98A305B41998}"_guid, "{FB2391E7-6C59-4960-B9A6-52F29EB50546}"_guid},
    {"FlatTextBox", "{A48C941E-DAF2-4738-848F-2284EBC92CB2}"_guid,
     "{C91AF513-23AD-4AF8-B4D8-35B440BC4F9F}"_guid, "{9AB5104C-1FDC-4924-8AF3-E4FEABA77531}"_guid},
    {"FlatColumns", "{5AF575FD-4D18-470D-B7F7-C6902CF48F52}"_guid,
     "{F7F1DF29-526C-4135-843B-A3A7F964C8E7}"_guid, "{9128C7FE-160E-4117-A242-EF4652F104E5}"_guid},
    {"FlatColumn",
     "{E9BEAEEB-3AA5-47B3-9C9F-F25EAFB1F24F}"_guid,
     "{D8BF0D41-219D-41DC-9620-F9AF2ACAFE6E}"_guid,
     {}},
    {"ksxValueList",
     "{26F0039D-623D-4B6D-B734-52F6D5B4B292}"_guid,
     "{6A788A71-85A4-4E7E-83D4-81EC9EB446B7}"_guid,
     {}},
    {"ksxValueListItem",
     "{135DF57A-2DF7-4445-82CE-62BEF3746FC7}"_guid,
     "{8CD24661-C36E-4A4C-9FD3-FFCF284AFE2C}"_guid,
     {}},
};

constexpr PageIdentity kPages[] = {
    {"ppFlatButton", "{5B351405-6A3B-4D6F-943D-69409DA2F320}"_guid},
    {"ppFlatCalculator", "{E854CAB7-5642-4FEE-B282-B04812F02856}"_guid},
    {"ppFlatCalendar", "{82D2F100-8BCA-450E-9DD2-C313035620E0}"_guid},
    {"ppFlatDropDown", "{9AAF147C-7BC8-4438-B16A-7710F99A6779}"_guid},
    {"ppFlatGrid", "{19A42E3A-C9BD-48F0-8375-D62DED7B2B9F}"_guid},
    {"ppFlatGridColumns", "{93B5D7C6-DCC7-4849-8139-E209A4E5C992}"_guid},
    {"ppFlatLabel", "{B691367B-E1FF-4FF1-84A7-2E9ABD5E22B9}"_guid},
    {"ppFlatScroll", "{63F14A78-B043-46ED-9228-F340ED254CB2}"_guid},
    {"ppFlatTabStrip", "{D43832D2-EA27-481C-87EB-C1FBBA7CEFB2}"_guid},
    {"ppFlatTextBox", "{CC80E585-D8D4-4880-A2A4-5034C4583121}"_guid},
};

constexpr EnumerationIdentity kEnumerations[] = {
    {"ksxAlignmentConstants", "{4D0401A9-A14A-4027-A28B-67DD2642456D}"_guid},
    {"ksxAppearanceConstants", "{4773061C-22A7-40E3-9286-420D4D3A6934}"_guid},
    {"ksxEditTypeConstants", "{11E29F7D-43BE-4DCD-9DBA-285D9CEB5F59}"_guid},
    {"ksxOrientationConstants", "{9DFFF12D-CE9C-4B5E-AB58-8E66FF594400}"_guid},
    {"ksxTabOrientationConstants", "{A498388F-BE2A-4D42-8084-14FBA1253E4C}"_guid},
};

template <typename Identity>
const Identity* FindIdentity(std::span<const Identity> all, std::string_view Identity::*name,
                             std::string_view wanted) {
  const auto found = std::ranges::find(all, wanted, name);
  return found == all.end() ? nullptr : &*found;
}

std::string IdentifierLine(std::string_view name, std::string_view kind, const Guid& id) {
  return std::string(name) + " " + std::string(kind) + " " + TextOf(id);
}

}  // namespace

std::span<const ClassIdentity> ClassIdentities() { return kClasses; }
int ToolboxPictureOf(const ClassIdentity& control) {
  return static_cast<int>(&control - ClassIdentities().data()) + 1;
}

std::span<const PageIdentity> PageIdentities() { return kPages; }
std::span<const EnumerationIdentity> EnumerationIdentities() { return kEnumerations; }

const ClassIdentity* IdentityOf(std::string_view class_name) {
  return FindIdentity(ClassIdentities(), &ClassIdentity::class_name, class_name);
}

const PageIdentity* IdentityOfPage(std::string_view page_name) {
  return FindIdentity(PageIdentities(), &PageIdentity::page_name, page_name);
}

std::string UserTypeName(std::string_view name) {
  return std::string(kLibraryName) + " " + std::string(name);
}

const EnumerationIdentity* IdentityOfEnumeration(std::string_view enumeration_name) {
  return FindIdentity(EnumerationIdentities(), &EnumerationIdentity::enumeration_name, enumeration_name);
}

std::vector<std::string> IdentifierLines() {
  std::vector<std::string> lines{IdentifierLine(kLibraryName, "library", kLibraryId) + " " +
                                 std::to_string(kLibraryMajor) + "." + std::to_string(kLibraryMinor)};
  for (const ClassIdentity& identity : kClasses) {
    lines.push_back(IdentifierLine(identity.class_name, "class", identity.class_id));
    lines.push_back(IdentifierLine(identity.class_name, "interface", identity.interface_id));
    if (identity.events_id.IsNull()) continue;
    lines.push_back(IdentifierLine(identity.class_name, "events", identity.events_id));
  }
  for (const PageIdentity& page : kPages)
    lines.push_back(IdentifierLine(page.page_name, "page", page.class_id));
  for (const EnumerationIdentity& enumeration : kEnumerations) {
    lines.push_back(IdentifierLine(enumeration.enumeration_name, "enumeration", enumeration.id));
  }
  return lines;
}

}  // namespace levelwidgets
