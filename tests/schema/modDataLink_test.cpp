#include "schema/modDataLink.h"

#include <gtest/gtest.h>

#include "recorder.h"

namespace vellumark {
namespace {

std::string Others(const DataLink& link) {
    std::string text;
    for (const LinkPart& part : link.OtherParts())
        text += part.name + "=" + part.value + "|";
    return text;
}

TEST(DataLink, StaysAsItCameUntilAPartChanges) {
    const std::string text = "Provider = sqloledb ; PWD={a;b};; UID=;ODBC;DRIVER={My Driver};File={x}}y}";
    DataLink link(text);
    EXPECT_EQ(link.Driver() + "|" + link.Password(), "My Driver|a;b");
    EXPECT_EQ(Others(link), "Provider=sqloledb|UID=|File=x}y|");
    link.SetPassword("a;b");
    link.SetDriver("My Driver");
    for (const LinkPart& part : link.OtherParts())
        link.ChangePart(part);
    EXPECT_EQ(link.ConnectionString(), text);

    link.ChangePart({link.OtherParts()[0].id, "Provider", "a b"});
    EXPECT_EQ(link.ConnectionString(), "Provider=a b;PWD={a;b};DRIVER={My Driver};File={x}}y}");
    link.SetPassword("}");
    link.SetDriver("");
    link.RemovePart(link.OtherParts()[2].id);
    EXPECT_EQ(link.ConnectionString(), "Provider=a b;PWD={}}}");
}

TEST(DataLink, AnEmptyStringOffersTheUsualParts) {
    for (const char* text : {"", "  "}) {
        DataLink link(text);
        EXPECT_EQ(Others(link), "Server=|Port=|Database=|UID=|");
        EXPECT_EQ(link.ConnectionString(), text);
        link.SetDriver("FreeTDS");
        link.SetPassword("p w");
        const int id = link.AddPart("Charset", "UTF-8;");
        EXPECT_EQ(link.ConnectionString(), "Driver={FreeTDS};PWD=p w;Charset={UTF-8;}");
        link.RemovePart(id);
        EXPECT_EQ(link.ConnectionString(), "Driver={FreeTDS};PWD=p w");
    }
    DataLink named("Password=old;Server=s");
    named.SetPassword("new");
    EXPECT_EQ(named.ConnectionString(), "Password=new;Server=s");

    DataLink empty("Password=;Server=s;PWD=second");
    EXPECT_EQ(empty.Password(), "second");
    empty.SetPassword("third");
    EXPECT_EQ(empty.ConnectionString(), "Server=s;PWD=third");
    DataLink twice("Password=first;Server=s;PWD=second");
    twice.SetPassword("");
    EXPECT_EQ(twice.ConnectionString(), "Server=s");
    DataLink open("Server={s;x");
    open.SetPassword("p");
    EXPECT_EQ(open.ConnectionString(), "Server={s;x};PWD=p");
}

TEST(DataLink, NamesThatAPartCannotHave) {
    const struct {
        const char* name;
        const char* message;
    } cases[] = {{"Server", ""},
                 {" ", "exclamation: Please enter the name of the part"},
                 {"a=b", "exclamation: The name of a part may not hold any of = ; { }"},
                 {" driver ", "exclamation: Driver and password have fields of their own."},
                 {"PASSWORD", "exclamation: Driver and password have fields of their own."}};
    test::Recorder recorder;
    for (const auto& c : cases) {
        EXPECT_EQ(fLinkPartNameOK(c.name), c.message[0] == '\0') << c.name;
        EXPECT_EQ(recorder.Take(), c.message);
    }
}

}  // namespace
}  // namespace vellumark
