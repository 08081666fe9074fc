#include "customers_by_hand.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

#include "engine/randomStream.h"

namespace vellumark::bench {

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

class Writer {
 public:
    explicit Writer(const std::string& path) : file_(std::fopen(path.c_str(), "wb")) {}
    ~Writer() { Flush(); }

    void Text(std::string_view text) {
        std::memcpy(at_, text.data(), text.size());
        at_ += text.size();
    }
    void Number(int number) { at_ = std::to_chars(at_, at_ + 12, number).ptr; }
    void Digits(int number, int count) {
        for (int i = count - 1; i >= 0; --i, number /= 10)
            at_[i] = static_cast<char>('0' + number % 10);
        at_ += count;
    }
    void Fill(char c, std::ptrdiff_t count) {
        std::memset(at_, c, static_cast<std::size_t>(count));
        at_ += count;
    }
    char* At() const { return at_; }
    void EndRow() {
        if (at_ - block_.data() > kBlock)
            Flush();
    }

 private:
    static constexpr std::ptrdiff_t kBlock = 256 * 1024;

    void Flush() {
        std::fwrite(block_.data(), 1, static_cast<std::size_t>(at_ - block_.data()), file_.get());
        at_ = block_.data();
    }

    std::unique_ptr<std::FILE, CloseFile> file_;
    std::vector<char> block_ = std::vector<char>(2 * kBlock);
    char* at_ = block_.data();
};

struct Day {
    int year = 2000, month = 1, day = 1;

    void Next() {
        constexpr int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
        if (++day <= lengths[month - 1] + (month == 2 && leap ? 1 : 0))
            return;
        day = 1;
        if (++month > 12) {
            month = 1;
            ++year;
        }
    }
};

struct Clock {
    Day day;
    int second = 3661;

    void Next() {
        if (++second == 86400) {
            second = 0;
            day.Next();
        }
    }
};

void WriteDay(Writer& out, const Day& day) {
    out.Digits(day.year, 4);
    out.Text("-");
    out.Digits(day.month, 2);
    out.Text("-");
    out.Digits(day.day, 2);
}

void WriteClock(Writer& out, const Clock& clock) {
    out.Digits(clock.second / 3600, 2);
    out.Text(".");
    out.Digits(clock.second / 60 % 60, 2);
    out.Text(".");
    out.Digits(clock.second % 60, 2);
}

int Draw(RandomStream& random, int low, int high) {
    return static_cast<int>(random.Next() * (high - low + 1)) + low;
}

void WriteRemark(Writer& out, int row) {
    const char* start = out.At();
    out.Text("REMARK");
    out.Number(row);
    out.Fill('#', 40 - (out.At() - start));
}

void WriteDelimitedRow(Writer& out, RandomStream& random, int row, const Day& born, const Clock& created) {
    out.Number(row);
    out.Text(",CUSTOMER_NAME");
    out.Number(row);
    out.Text(",DEU,");
    out.Number(Draw(random, 18, 99));
    out.Text(",");
    out.Number(Draw(random, 1, 1000000));
    out.Text(",");
    WriteDay(out, born);
    out.Text(",");
    WriteDay(out, created.day);
    out.Text("-");
    WriteClock(out, created);
    out.Text(".000000,");
    out.Text(Draw(random, 1, 2) == 1 ? "TRUE," : "FALSE,");
    out.Number(row);
    out.Text(",");
    WriteRemark(out, row);
    out.Text("\r\n");
}

constexpr std::string_view kOracleHead =
    "insert into "
    "SHOP.CUSTOMER\r\n(\r\nCUSTOMER_ID,\r\nCUSTOMER_NAME,\r\nCOUNTRY,\r\nAGE,\r\nCREDIT,\r\nBORN,\r\n"
    "CREATED,\r\nACTIVE,\r\nBALANCE,\r\nREMARK\r\n)\r\nvalues (\r\n";

void WriteOracleRow(Writer& out, RandomStream& random, int row, const Day& born, const Clock& created) {
    out.Text(kOracleHead);
    out.Number(row);
    out.Text(",\r\n'CUSTOMER_NAME");
    out.Number(row);
    out.Text("',\r\n'DEU',\r\n");
    out.Number(Draw(random, 18, 99));
    out.Text(",\r\n");
    out.Number(Draw(random, 1, 1000000));
    out.Text(",\r\nTO_DATE('");
    WriteDay(out, born);
    out.Text("00.00.00', 'YYYY-MM-DDHH24.MI.SS'),\r\nTO_DATE('");
    WriteDay(out, created.day);
    WriteClock(out, created);
    out.Text("', 'YYYY-MM-DDHH24.MI.SS'),\r\n");
    out.Text(Draw(random, 1, 2) == 1 ? "TRUE,\r\n" : "FALSE,\r\n");
    out.Number(row);
    out.Text(",\r\n'");
    WriteRemark(out, row);
    out.Text("'\r\n)\r\n/\r\n");
    if (row % 1000 == 0)
        out.Text("COMMIT\r\n/\r\n\r\n");
}

}  // namespace

void WriteCustomersByHand(const std::string& path, TargetFormat format, int rows) {
    Writer out(path);
    RandomStream random;
    Day born;
    Clock created;
    for (int row = 1; row <= rows; ++row) {
        born.Next();
        created.Next();
        if (format == TargetFormat::Oracle)
            WriteOracleRow(out, random, row, born, created);
        else
            WriteDelimitedRow(out, random, row, born, created);
        out.EndRow();
    }
    if (format == TargetFormat::Oracle && rows % 1000 != 0)
        out.Text("COMMIT\r\n/\r\n\r\n");
}

}  // namespace vellumark::bench
