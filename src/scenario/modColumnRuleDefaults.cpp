#include "scenario/modColumnRuleDefaults.h"

namespace vellumark {

void SetColumnRuleDefaults(dao::Recordset& rule, std::string_view dataType) {
    rule.Set("Code Generate Data Type", "D")
        .Set("Flag column unique", false)
        .Set("Flag compound column unique", false)
        .Set("Fill the column", "N")
        .Set("generated value too large", "B")
        .Set("flag user defined foreign key", false)
        .Set("Code Output Textfile in Quotes", "D")
        .Set("Range order", "S")
        .Set("Concat Value with Id", "N")
        .Set("Flag Exclude", dataType == "Blob");
    if (dataType == "Blob")
        rule.Set("Constant Value", kObjectNote);
    if (dataType == "TimeStamp" || dataType == "Time")
        rule.Set("date time increment", "N");
    else if (dataType == "Date")
        rule.Set("date time increment", "D");
}

}  // namespace vellumark
