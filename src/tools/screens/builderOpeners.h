#pragma once

#include <QWidget>
#include <optional>
#include <string>

// The SQL builder, shown until it is closed.
namespace vellumark {

// Who calls the builder decides what it does with a text.
enum class BuilderCaller {
    Main,         // nothing goes in or comes out
    ViewData,     // frmViewData: a statement
    WhereClause,  // frmTTR_Where: a condition, which starts with "where "
};

// The text as the user left it with Close; nothing behind Cancel.
std::optional<std::string> BuildSQLText(QWidget* parent, BuilderCaller caller, const std::string& text = "");

}  // namespace vellumark
