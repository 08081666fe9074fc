#include "engine/rowMaker.h"

#include "engine/modInsertText.h"

namespace vellumark {

namespace {

std::string RowTail(RowForm form, TargetFormat format) {
    std::string tail;
    if (form != RowForm::DelimitedLine)
        tail.append(kLineEnd).append(")");
    if (form != RowForm::StatementForTarget)
        tail += kLineEnd;
    if (form == RowForm::StatementInFile)
        InsertEndofStatement(tail, format);
    return tail;
}

std::string ValuesHead(RowForm form) {
    std::string head(form == RowForm::StatementInFile ? kLineEnd : " ");
    return head.append("values (").append(kLineEnd);
}

}  // namespace

RowMaker::RowMaker(TablePlan& table, ValueContext& context, RowForm form)
    : table_(table), context_(context), form_(form) {
    separator_ = form == RowForm::DelimitedLine ? context.options->outputFileDelimiter : ",";
    if (context.format != TargetFormat::Delimited)
        separator_ += kLineEnd;
    keepsLoneSeparator_ = MakesStatements() && context.format != TargetFormat::Delimited;
    if (MakesStatements())
        head_ = ColumnList(nullptr) + ValuesHead(form);
    MakeSteps();
}

// Up to and with `last` as it grows during the first row, or the whole list.
std::string RowMaker::ColumnList(const ColumnPlan* last) const {
    const std::string name = QualifiedTableName(*context_.options, table_.owner, table_.name);
    std::string list = InsertStart(context_.format, name);
    for (const ColumnPlan& column : table_.columns) {
        list.append(ListedColumn(context_.format, column.name)).append(",").append(kLineEnd);
        if (&column == last)
            return list;
    }
    list.resize(list.size() - 1 - kLineEnd.size());
    return list.append(kLineEnd).append(")");
}

void RowMaker::MakeSteps() {
    for (ColumnPlan& column : table_.columns) {
        if (&column != &table_.columns.front())
            trailing_ += separator_;
        PlanColumn(trailing_, column);
    }
    if (form_ == RowForm::DelimitedLine || !table_.columns.empty())
        tail_ = RowTail(form_, context_.format);
}

// Moves `pending` and the literal's start before a new step.
void RowMaker::AddStep(std::string& pending, std::string_view prefix, StepKind kind, ColumnPlan& column) {
    Step step;
    step.literalStart = pending.size();
    step.before = pending.append(prefix);
    step.kind = kind;
    step.column = &column;
    steps_.push_back(std::move(step));
    pending.clear();
}

void RowMaker::PlanColumn(std::string& pending, ColumnPlan& column) {
    if (!column.isNull && !column.dataType)
        return AddStep(pending, "", StepKind::Refuse, column);
    if ((column.isNull || column.IsConstant()) && column.number.HasEffect())
        AddStep(pending, "", StepKind::NumberOnly, column);
    if (column.isNull) {
        pending += WordsOf(context_.format).nullWord;
        return;
    }
    const LiteralAffixes affixes = *InsertValue(context_.format, column);
    if (column.IsConstant()) {
        pending.append(affixes.prefix).append(column.text).append(affixes.suffix);
        return;
    }
    AddStep(pending, affixes.prefix, StepKind::Generate, column);
    pending += affixes.suffix;
}

RowOutcome RowMaker::RunStep(const Step& step, const RowPosition& row) {
    if (step.kind == StepKind::NumberOnly) {
        NextNumber(step.column->number, row, *context_.random);
        return RowOutcome::Made;
    }
    if (!fGenerateColumnValue(row_, *step.column, row, context_))
        return ReadEndMarker == "EOF" ? RowOutcome::EndOfData : RowOutcome::Failed;
    const bool refused = step.kind == StepKind::Refuse && !InsertValue(context_.format, *step.column);
    return refused ? RowOutcome::Failed : RowOutcome::Made;
}

RowOutcome RowMaker::Make(const RowPosition& row) {
    isFirstRow_ = row.rowCounter == 1;
    row_.Clear();
    row_.Append(head_);
    for (const Step& step : steps_) {
        step_ = &step;
        row_.Append(step.before);
        stepStart_ = row_.Size();
        const RowOutcome outcome = RunStep(step, row);
        if (outcome != RowOutcome::Made)
            return outcome;
    }
    step_ = nullptr;
    row_.Append(trailing_);
    // A lone empty literal leaves no more than its separator, which is too short to be cut.
    if (keepsLoneSeparator_ && row_.Size() == head_.size())
        row_.Append(separator_);
    row_.Append(tail_);
    return RowOutcome::Made;
}

std::string RowMaker::SqlInHand() const {
    std::string sql;
    if (MakesStatements())
        sql = ColumnList(isFirstRow_ && step_ != nullptr ? step_->column : nullptr);
    sql.append(" values (").append(kLineEnd);
    if (step_ == nullptr)
        return sql;
    const std::size_t literalStart = stepStart_ - step_->before.size() + step_->literalStart;
    return sql.append(row_.View().substr(head_.size(), literalStart - head_.size()));
}

}  // namespace vellumark
