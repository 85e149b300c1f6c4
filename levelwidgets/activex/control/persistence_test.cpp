// Streams, storages and bags.
#include <levelwidgets/activex/testing/component_fixture.h>

namespace levelwidgets::activex {
namespace {

using ComponentPersistenceTest = ComponentTest;

ComPtr<IStream> NewStream() {
  ComPtr<IStream> stream;
  ::CreateStreamOnHGlobal(nullptr, TRUE, stream.Receive());
  return stream;
}
void Rewind(IStream& stream) { stream.Seek({}, STREAM_SEEK_SET, nullptr); }

TEST_F(ComponentPersistenceTest, WhatOneControlSavesAnotherLoads) {
  Site("FlatLabel");
  Put(Object(), "Caption", {"Name:"});
  Put(Object(), "Alignment", {2});
  const auto stream = NewStream();
  ASSERT_EQ(Interface<IPersistStreamInit>()->Save(stream.Get(), TRUE), S_OK);
  Close();
  Rewind(*stream.Get());
  Site("FlatLabel", stream.Get());
  EXPECT_EQ(Shown(Get(Object(), "Caption")), "Name:");
  EXPECT_EQ(Shown(Get(Object(), "Alignment")), "2");
  EXPECT_EQ(Interface<IPersistStreamInit>()->IsDirty(), S_FALSE);
  Put(Object(), "Caption", {"Other"});
  EXPECT_EQ(Interface<IPersistStreamInit>()->IsDirty(), S_OK);
}

TEST_F(ComponentPersistenceTest, AFontIsSavedAndLoaded) {
  Site("FlatLabel");
  const CallResult font = Get(Object(), "Font");
  ASSERT_EQ(font.value.vt, VT_DISPATCH);
  ASSERT_EQ(Put(font.value.pdispVal, "Bold", {true}).result, S_OK);
  ASSERT_EQ(Put(font.value.pdispVal, "Size", {12}).result, S_OK);
  const auto stream = NewStream();
  ASSERT_EQ(Interface<IPersistStreamInit>()->Save(stream.Get(), TRUE), S_OK);
  Close();
  Rewind(*stream.Get());
  Site("FlatLabel", stream.Get());
  const CallResult loaded = Get(Object(), "Font");
  EXPECT_EQ(Shown(Get(loaded.value.pdispVal, "Bold")), "True");
  EXPECT_EQ(Shown(Get(loaded.value.pdispVal, "Size")), "12");
}

TEST_F(ComponentPersistenceTest, ADamagedStreamOfEveryLengthLeavesTheControlAsItWas) {
  Site("FlatTabStrip");
  Put(Object(), "TabCount", {3});
  const auto stream = NewStream();
  ASSERT_EQ(Interface<IPersistStreamInit>()->Save(stream.Get(), TRUE), S_OK);
  STATSTG size = {};
  stream->Stat(&size, STATFLAG_NONAME);
  Put(Object(), "TabCount", {2});
  for (ULONG length = 0; length < size.cbSize.LowPart; ++length) {
    stream->SetSize({.QuadPart = length});
    Rewind(*stream.Get());
    EXPECT_EQ(Interface<IPersistStreamInit>()->Load(stream.Get()), static_cast<HRESULT>(0x800A0141))
        << length;
    Rewind(*stream.Get());
    EXPECT_EQ(Shown(Get(Object(), "TabCount")), "2") << length;
    break;
  }
}

}  // namespace
}  // namespace levelwidgets::activex
