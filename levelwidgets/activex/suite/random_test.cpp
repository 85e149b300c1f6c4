// Calls and saved values at random: a component may refuse them, and does nothing worse.
#include <levelwidgets/activex/suite/random_values_fixture.h>
#include <levelwidgets/activex/testing/component_fixture.h>
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/testing/rounds.h>

namespace levelwidgets::activex {
namespace {

using levelwidgets::testing::Rounds;

using RandomCallsTest = ComponentTest;

// --- Members by number -------------------------------------------------------------------------------------

// A call with everything about it at random.
HRESULT CallAtRandom(RandomValues& values, IDispatch& object, int members) {
  std::vector<VARIANT> arguments(
      static_cast<std::size_t>(values.OneIn(10) ? values.Below(70) : values.Below(4)));
  for (VARIANT& argument : arguments) argument = values.Any();
  std::vector<DISPID> names(
      arguments.empty() || !values.OneIn(3)
          ? 0
          : static_cast<std::size_t>(values.Below(static_cast<int>(arguments.size()) + 1)));
  for (DISPID& name : names)
    name = values.OneIn(2) ? values.Below(5) : values.OneIn(2) ? DISPID_PROPERTYPUT : -7;
  constexpr WORD kFlags[] = {DISPATCH_PROPERTYGET,
                             DISPATCH_METHOD,
                             DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                             DISPATCH_PROPERTYPUT,
                             DISPATCH_PROPERTYPUTREF,
                             0,
                             0xFFFF};
  const WORD flags = kFlags[values.Below(static_cast<int>(std::size(kFlags)))];
  if (flags == DISPATCH_PROPERTYPUT && names.empty() && !arguments.empty())
    names.push_back(DISPID_PROPERTYPUT);
  DISPPARAMS parameters = {values.OneIn(50) ? nullptr : arguments.data(),
                           values.OneIn(50) ? nullptr : names.data(), static_cast<UINT>(arguments.size()),
                           static_cast<UINT>(values.OneIn(50) ? 100 : names.size())};
  const DISPID member = values.OneIn(10) ? -values.Below(600) : values.Below(members + 2);
  OwnedVariant result;
  EXCEPINFO exception = {};
  const HRESULT called = object.Invoke(
      member, values.OneIn(50) ? IID_IUnknown : IID_NULL, 0, flags, values.OneIn(50) ? nullptr : &parameters,
      values.OneIn(4) ? nullptr : &result, values.OneIn(4) ? nullptr : &exception, nullptr);
  ::SysFreeString(exception.bstrSource);
  ::SysFreeString(exception.bstrDescription);
  return called;
}

std::vector<const ClassInfo*> MadeClasses() {
  std::vector<const ClassInfo*> made(ControlClasses().begin(), ControlClasses().end());
  for (const ClassInfo* info : ObjectClasses()) {
    if (info->Creatable()) made.push_back(info);
  }
  return made;
}

TEST_F(RandomCallsTest, NoCallAtRandomDoesMoreThanFail) {
  constexpr unsigned kSeed = 20240515;
  for (const ClassInfo* info : MadeClasses()) {
    const auto object = MakeComponent(info->Name());
    const auto dispatch = As<IDispatch>(object);
    const int members = static_cast<int>(info->Properties().size() + info->Methods().size());
    int succeeded = 0;
    RandomValues values(kSeed);
    for (int round = 0; round < Rounds(1000); ++round) {
      SCOPED_TRACE(std::string(info->Name()) + ", seed " + std::to_string(kSeed) + ", round " +
                   std::to_string(round));
      succeeded += SUCCEEDED(CallAtRandom(values, *dispatch.Get(), members)) ? 1 : 0;
      values.Clear();
    }
    EXPECT_GT(succeeded, 0) << info->Name();
    // It has come through in one piece.
    for (const PropertyInfo& property : info->Properties()) {
      if (property.Indexed()) continue;
      EXPECT_EQ(Invoke(object.Get(), property.number, DISPATCH_PROPERTYGET).result, S_OK)
          << info->Name() << "." << property.name;
    }
  }
}

TEST_F(RandomCallsTest, TheValueOfAnObjectThatLeadsBackToItselfIsRefused) {
  const auto label = MakeComponent("FlatLabel");
  for (const auto answer : {ForeignObject::Answer::kItself, ForeignObject::Answer::kItselfByReference}) {
    const auto foreign = ComPtr<ForeignObject>::Taking(new ForeignObject(answer, VARIANT{}));
    const CallResult result = Put(label.Get(), "Caption", {static_cast<IUnknown*>(foreign.Get())});
    EXPECT_EQ(result.number, static_cast<HRESULT>(0x800A000D));
  }
}

TEST_F(RandomCallsTest, TheValueOfAnotherObjectStandsForIt) {
  const auto label = MakeComponent("FlatLabel");
  Value text("Save");
  const auto foreign =
      ComPtr<ForeignObject>::Taking(new ForeignObject(ForeignObject::Answer::kValue, text.Get()));
  EXPECT_EQ(Put(label.Get(), "Caption", {static_cast<IUnknown*>(foreign.Get())}).result, S_OK);
  EXPECT_EQ(Shown(Get(label.Get(), "Caption")), "Save");
}

// --- A bag that answers anything ---------------------------------------------------------------------------

class RandomBag : public ComObject<IPropertyBag> {
 public:
  // Some of its answers call what is being loaded.
  RandomBag(RandomValues& values, IUnknown* loaded) : values_(values), loaded_(loaded) {}

  HRESULT STDMETHODCALLTYPE Read(LPCOLESTR, VARIANT* value, IErrorLog*) override {
    if (values_.OneIn(50)) CallBack();
    if (!values_.OneIn(4)) return E_INVALIDARG;  // most have their defaults
    const VARIANT any = values_.Any();
    if (values_.OneIn(10)) {
      *value = {};
      if ((any.vt & VT_BYREF) != 0) {
        *value = any;
        return S_OK;
      }
    }
    if ((any.vt & VT_BYREF) != 0) return E_FAIL;
    return ::VariantCopy(value, const_cast<VARIANT*>(&any));
  }
  HRESULT STDMETHODCALLTYPE Write(LPCOLESTR, VARIANT*) override { return values_.OneIn(3) ? E_FAIL : S_OK; }

 private:
  void CallBack() {
    if (const auto bag = As<IPersistPropertyBag>(loaded_)) EXPECT_TRUE(FAILED(bag->Load(this, nullptr)));
    Get(loaded_, "Enabled");
    if (const auto object = As<IOleObject>(loaded_)) object->Close(OLECLOSE_NOSAVE);
  }

  RandomValues& values_;
  IUnknown* loaded_;
};

// What a control would save, as bytes.
std::string StreamOf(IUnknown* control) {
  ComPtr<IStream> stream;
  ::CreateStreamOnHGlobal(nullptr, TRUE, stream.Receive());
  if (FAILED(As<IPersistStreamInit>(control)->Save(stream.Get(), FALSE))) return "";
  STATSTG size = {};
  stream->Stat(&size, STATFLAG_NONAME);
  std::string bytes(size.cbSize.LowPart, '\0');
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  stream->Read(bytes.data(), size.cbSize.LowPart, nullptr);
  return bytes;
}

TEST_F(RandomCallsTest, ABagThatAnswersAnythingNeverLeavesAControlHalfLoaded) {
  constexpr unsigned kSeed = 19991231;
  for (const ClassInfo* info : ControlClasses()) {
    Site(std::string(info->Name()).c_str());
    RandomValues values(kSeed);
    int loaded = 0;
    for (int round = 0; round < Rounds(40); ++round) {
      SCOPED_TRACE(std::string(info->Name()) + ", seed " + std::to_string(kSeed) + ", round " +
                   std::to_string(round));
      const auto persist = Interface<IPersistPropertyBag>();
      ASSERT_EQ(persist->InitNew(), S_OK);
      const std::string before = StreamOf(Object());
      const auto bag = ComPtr<RandomBag>::Taking(new RandomBag(values, Object()));
      const HRESULT result = persist->Load(bag.Get(), nullptr);
      loaded += SUCCEEDED(result) ? 1 : 0;
      if (FAILED(result)) {
        EXPECT_EQ(StreamOf(Object()), before) << "it was refused, and yet has something of it";
      }
      persist->Save(bag.Get(), FALSE, TRUE);
      values.Clear();
    }
    EXPECT_GT(loaded, 0) << info->Name();
    Close();
  }
}

}  // namespace
}  // namespace levelwidgets::activex
