#pragma once

#include "viewed_rows.h"

// The cases that hold on every engine; a test program names the routes it can go.
namespace vellumark::test {

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(ViewedRowsTest);

TEST_P(ViewedRowsTest, RowsAreAddedChangedAndDeletedByTheirKey) {
    Run("create table item (id bigint primary key, name varchar(40) not null, price numeric(10,2), made "
        "date); insert into item values (9007199254740993, 'pen', 1.5, '2001-02-03'); insert into item "
        "values (9007199254740992, 'ink', null, null)");
    Show("item");
    EXPECT_EQ(data->Title(), GetParam().engine == Engine::PostgreSQL ? "Table: public.item" : "Table: item");
    EXPECT_TRUE(data->IsTable());
    EXPECT_TRUE(Shown().starts_with("9007199254740992|ink|null|null\n9007199254740993|pen|1.5")) << Shown();

    EXPECT_TRUE(data->fInsert({Cell(0, "5"), Cell(1, "cap"), Cell(3, "2024-02-29")})) << recorder.Take();
    EXPECT_EQ(RowText(2), "5|cap|null|2024-02-29");
    EXPECT_EQ(data->Update(1, {Cell(1, "quill"), Null(2)}), RowChange::Done) << recorder.Take();
    EXPECT_EQ(RowText(1), "9007199254740993|quill|null|2001-02-03");
    EXPECT_EQ(data->Update(2, {Cell(0, "7")}), RowChange::Done) << recorder.Take();
    EXPECT_EQ(data->Delete(0), RowChange::Done) << recorder.Take();
    EXPECT_EQ(Shown(), "9007199254740993|quill|null|2001-02-03\n7|cap|null|2024-02-29");
    EXPECT_EQ(Seen("select id, name from item order by id"), "7|cap\n9007199254740993|quill");
    EXPECT_EQ(recorder.Take(), "");
}

TEST_P(ViewedRowsTest, EveryTextComesBackAsItWasTyped) {
    Run("create table note (id integer primary key, body varchar(200))");
    Show("note");
    const std::string texts[] = {"it's", "a\\b \\' \\\\", "größe 😀", "\"q\" `x` [y]", "? :name $1 {d '1'}",
                                 "",     "null",          "100%_",   "line\nend",     "--"};
    int id = 0;
    for (const std::string& text : texts) {
        const auto place = static_cast<std::size_t>(id);
        ASSERT_TRUE(data->fInsert({Cell(0, std::to_string(++id)), Cell(1, text)})) << recorder.Take();
        EXPECT_EQ(data->Row(place)[1], TextField(text));
        EXPECT_EQ(data->Update(place, {Null(1)}), RowChange::Done) << recorder.Take();
        EXPECT_EQ(data->Row(place)[1], NullField());
        EXPECT_EQ(data->Update(place, {Cell(1, text)}), RowChange::Done) << recorder.Take();
        EXPECT_EQ(Seen("select body from note where id = " + std::to_string(id)), text);
    }
    EXPECT_EQ(recorder.Take(), "");
}

TEST_P(ViewedRowsTest, DefaultsComputedColumnsAndTriggersAreShownAsTheDatabaseMadeThem) {
    Run("create table auto (id " + traits.counter +
        ", note varchar(20) default 'none', twice integer generated always as (amount * 2) stored, amount "
        "integer default 4)");
    Show("auto");
    EXPECT_FALSE(data->Columns()[2].writable);
    EXPECT_TRUE(data->fInsert({Cell(3, "21")})) << recorder.Take();
    EXPECT_TRUE(data->fInsert({})) << recorder.Take();
    EXPECT_EQ(Shown(), "1|none|42|21\n2|none|8|4");
    EXPECT_EQ(data->Update(0, {Cell(3, "5")}), RowChange::Done) << recorder.Take();
    EXPECT_EQ(RowText(0), "1|none|10|5");
}

TEST_P(ViewedRowsTest, BytesAreTypedByTheirDigits) {
    Run("create table picture (id integer primary key, body " + traits.blob + ")");
    Show("picture");
    ASSERT_TRUE(data->fInsert({Cell(0, "1"), Cell(1, "0x00ff27 5C")})) << recorder.Take();
    EXPECT_EQ(Shown(), "1|0x00FF275C");
    EXPECT_EQ(data->Update(0, {Cell(1, "")}), RowChange::Done) << recorder.Take();
    EXPECT_EQ(data->Row(0)[1], BytesField(""));
    EXPECT_EQ(data->Update(0, {Cell(1, "0xAB1")}), RowChange::Refused);
    EXPECT_EQ(recorder.Take(),
              "exclamation: Error 3421: Data type conversion error. '0xAB1' is no row of "
              "bytes (0x and two hexadecimal digits a byte) for body.");
    EXPECT_EQ(data->Row(0)[1], BytesField(""));
}

TEST_P(ViewedRowsTest, TruthValuesAndMomentsRoundTrip) {
    Run("create table event (id integer primary key, sold " + traits.truth + ", at " + traits.moment + ")");
    Show("event");
    ASSERT_TRUE(data->fInsert({Cell(0, "1"), Cell(1, "1"), Cell(2, "2001-02-03 04:05:06")}))
        << recorder.Take();
    EXPECT_TRUE(RowText(0).ends_with("1|2001-02-03 04:05:06")) << RowText(0);
    EXPECT_EQ(data->Update(0, {Cell(1, "0")}), RowChange::Done) << recorder.Take();
    EXPECT_EQ(RowText(0), "1|0|2001-02-03 04:05:06");
    if (!traits.notADate.empty()) {
        EXPECT_EQ(data->Update(0, {Cell(2, "soon")}), RowChange::Refused);
        EXPECT_TRUE(recorder.Take().starts_with("exclamation: " + traits.notADate));
        EXPECT_EQ(RowText(0), "1|0|2001-02-03 04:05:06");
    }
}

TEST_P(ViewedRowsTest, ARefusedChangeShowsTheDatabasesWordsAndRows) {
    Run("create table item (id integer primary key, name varchar(40) not null); insert into item values (1, "
        "'pen'); insert into item values (2, 'ink'); insert into item values (3, 'cap')");
    Show("item");
    EXPECT_FALSE(data->fInsert({Cell(0, "1"), Cell(1, "x")}));
    EXPECT_TRUE(recorder.Take().starts_with("exclamation: " + traits.duplicate));
    EXPECT_EQ(data->Update(1, {Cell(0, "1")}), RowChange::Refused);
    EXPECT_TRUE(recorder.Take().starts_with("exclamation: " + traits.duplicate));
    EXPECT_EQ(data->Update(1, {Null(1)}), RowChange::Refused);
    EXPECT_TRUE(recorder.Take().starts_with("exclamation: " + traits.missing));
    EXPECT_EQ(Shown(), "1|pen\n2|ink\n3|cap");

    Run("update item set name = 'blue ink' where id = 2; delete from item where id = 3");
    EXPECT_EQ(data->Update(1, {Cell(1, "black ink")}), RowChange::Refused);
    EXPECT_EQ(recorder.Take(),
              "exclamation: Error 3197: The row has been changed by someone else since it was read.");
    EXPECT_EQ(data->Delete(2), RowChange::Gone);
    EXPECT_EQ(recorder.Take(),
              "exclamation: Error 3167: The row is no longer in the table: it has been "
              "deleted, or its key has been changed.");
    EXPECT_EQ(Shown(), "1|pen\n2|blue ink");
    EXPECT_EQ(data->Update(1, {Cell(1, "black ink")}), RowChange::Done) << recorder.Take();
    EXPECT_EQ(Seen("select * from item order by id"), "1|pen\n2|black ink");
}

TEST_P(ViewedRowsTest, AUniqueKeyTellsRowsWhereThereIsNoPrimaryOne) {
    Run("create table line (\"order no\" integer not null, part varchar(9) not null, amount integer, unique "
        "(\"order no\", part)); insert into line values (2, 'b', 7); insert into line values (2, 'a', 7);"
        " insert into line values (1, 'b', 7)");
    Show("line");
    EXPECT_EQ(Shown(), "1|b|7\n2|a|7\n2|b|7");
    EXPECT_EQ(data->Update(1, {Cell(2, "8"), Cell(1, "c")}), RowChange::Done) << recorder.Take();
    EXPECT_EQ(data->Delete(0), RowChange::Done) << recorder.Take();
    EXPECT_EQ(Seen("select part, amount from line order by part"), "b|7\nc|8");
}

TEST_P(ViewedRowsTest, WithoutAKeyJustOneOfEqualRowsChanges) {
    Run("create table heap (a integer, b varchar(9)); insert into heap values (1, 'x'); insert into heap "
        "values (1, 'x'); insert into heap values (1, 'X'); insert into heap values (null, null)");
    Show("heap");
    EXPECT_EQ(data->Count(), 4U);
    EXPECT_EQ(data->Update(0, {Cell(0, "2")}), RowChange::Done) << recorder.Take();
    EXPECT_EQ(Seen("select count(*) from heap where a = 1"), "2");
    EXPECT_EQ(data->Delete(1), RowChange::Done) << recorder.Take();
    EXPECT_EQ(data->Update(2, {Cell(0, "3")}), RowChange::Done) << recorder.Take();
    EXPECT_EQ(Shown(), "2|x\n1|X\n3|null");
    EXPECT_EQ(Seen("select a, b from heap order by a"), "1|X\n2|x\n3|null");
    EXPECT_TRUE(data->fInsert({Cell(0, "9")})) << recorder.Take();
    EXPECT_EQ(RowText(3), "9|null");

    // A number that has no exact text can't tell a row.
    Run("create table rough (a integer, f real, t varchar(9)); insert into rough values (1, 0.1, 'x');"
        " insert into rough values (1, 0.1, 'x')");
    if (traits.wholeRowsOnly)
        Run("alter table rough modify f float");
    Show("rough");
    EXPECT_EQ(data->Delete(0), traits.wholeRowsOnly ? RowChange::Refused : RowChange::Done);
    EXPECT_EQ(recorder.Take(), !traits.wholeRowsOnly
                                   ? ""
                                   : "exclamation: Error 3229: The table rough has no key, and other rows "
                                     "have the same values: this one can't be changed or deleted alone.");
}

TEST_P(ViewedRowsTest, LongTablesComeInPiecesAndInOrder) {
    Run("create table many (a integer, b varchar(9), c integer, primary key (a, b)); create table heap (a "
        "integer)");
    std::string values;
    for (int i = 0; i < 2500; ++i)
        values += (i == 0 ? "(" : ", (") + std::to_string(i * 7919 % 50) + ", 'k" +
                  std::to_string(10000 + i) + "', " + std::to_string(i) + ")";
    Run("insert into many values " + values + "; insert into heap select c from many");
    for (const char* table : {"many", "heap"}) {
        ASSERT_TRUE(data->fShowTable({table, ""})) << recorder.Take();
        EXPECT_TRUE(data->HasMore());
        EXPECT_EQ(data->Count(), 200U);
        while (data->HasMore())
            ASSERT_TRUE(data->fReadMore(700)) << recorder.Take();
        EXPECT_EQ(data->Count(), 2500U);
    }
    Show("many");
    std::string last;
    for (std::size_t place = 0; place < data->Count(); ++place) {
        const HeldRow row = data->Row(place);
        const std::string key =
            std::string(2 - std::min<std::size_t>(2, row[0].text.size()), '0') + row[0].text + row[1].text;
        ASSERT_LT(last, key);
        last = key;
    }
    // A change reads what is left before it is made.
    ASSERT_TRUE(data->fShowTable({"many", ""}));
    EXPECT_TRUE(data->fInsert({Cell(0, "99"), Cell(1, "z")})) << recorder.Take();
    EXPECT_EQ(data->Count(), 2501U);
    EXPECT_EQ(RowText(2500), "99|z|null");
}

TEST_P(ViewedRowsTest, RowsOfAStatementAreEditedWhereTheyAreThoseOfOneTable) {
    Run("create table item (id integer primary key, name varchar(40)); create table heap (a integer);"
        " insert into item values (1, 'pen'); insert into item values (2, 'ink'); insert into heap values "
        "(5)");
    const auto goOn = [] { return true; };
    EXPECT_TRUE(data->fRunSQL("select * from item where id > 1", goOn)) << recorder.Take();
    EXPECT_EQ(data->Title(), "SQL Results");
    EXPECT_EQ(Shown(), "2|ink");
    EXPECT_EQ(data->Update(0, {Cell(1, "tar")}), RowChange::Done) << recorder.Take();
    EXPECT_TRUE(data->fRunSQL("SELECT * FROM heap ;", goOn)) << recorder.Take();
    EXPECT_TRUE(data->IsTable());
    EXPECT_EQ(data->Update(0, {Cell(0, "6")}), RowChange::Done) << recorder.Take();
    for (const std::string text :
         {"select name, id from item order by id", "select i.name, i.id from item i, heap h order by i.id"}) {
        EXPECT_TRUE(data->fRunSQL(text, goOn)) << recorder.Take();
        EXPECT_FALSE(data->IsTable());
        EXPECT_EQ(Shown(), "pen|1\ntar|2");
    }
    EXPECT_TRUE(data->fRunSQL("update item set name = 'nib' where id = 1", goOn)) << recorder.Take();
    EXPECT_EQ(Shown(), "pen|1\ntar|2");
    EXPECT_EQ(recorder.Take(), "");
    EXPECT_FALSE(data->fRunSQL("selct", goOn));
    EXPECT_TRUE(recorder.Take().starts_with("exclamation: Error "));
    EXPECT_EQ(Shown(), "pen|1\ntar|2");
    EXPECT_EQ(Seen("select name from item order by id"), "nib\ntar");
}

}  // namespace vellumark::test
