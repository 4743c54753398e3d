#include "corrections/journal_reading.h"

#include <gtest/gtest.h>

#include "platform/memory_files.h"
#include "platform/plain_xml.h"

namespace quorvale {
namespace {

TEST(ReadJournal, OneThatIsNotThereIsNoFailure) {
    MemoryFiles files;
    PlainXml xml;
    const JournalReading reading = ReadJournal(files, xml, u"/a!.xml");
    EXPECT_EQ(reading.Document, nullptr);
    EXPECT_FALSE(reading.Unreadable);
    EXPECT_FALSE(reading.Malformed);
}

TEST(ReadJournal, GivesTheDocument) {
    MemoryFiles files;
    PlainXml xml;
    files.Put(u"/a!.xml", "<corrections> </corrections>");
    const JournalReading reading = ReadJournal(files, xml, u"/a!.xml");
    ASSERT_NE(reading.Document, nullptr);
    EXPECT_TRUE(reading.Document->SelectSingleNode(u"corrections")->HasChildNodes());
}

TEST(ReadJournal, SaysWhyItIsNoXml) {
    MemoryFiles files;
    PlainXml xml;
    files.Put(u"/a!.xml", "<corrections><update");
    const JournalReading reading = ReadJournal(files, xml, u"/a!.xml");
    EXPECT_EQ(reading.Document, nullptr);
    EXPECT_FALSE(reading.Unreadable);
    ASSERT_TRUE(reading.Malformed);
    EXPECT_FALSE(reading.Malformed->Reason.empty());
}

}  // namespace
}  // namespace quorvale
