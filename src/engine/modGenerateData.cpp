#include "engine/modGenerateData.h"

#include "engine/connectionSlots.h"
#include "engine/insertPass.h"
#include "engine/modForeignKeys.h"
#include "engine/targetConnection.h"
#include "engine/workingPass.h"
#include "platform/dialogs.h"
#include "platform/error.h"
#include "platform/text.h"
#include "repository/modSequentialFileServices.h"
#include "repository/modVellumark.h"
#include "scenario/modStatusMarks.h"
#include "scenario/modTTRandRTDmaintenance.h"

namespace vellumark {

namespace {

// What the next run goes by when [Options] has lost its row.
RunOptions& HeldOptions() {
    static RunOptions options;
    return options;
}

constexpr int kShowSql = 1;

void ShowUnexpectedError(const platform::Error& error, const std::string& sqlInHand) {
    const int answer = platform::CurrentDialogs().Choose(
        {"Unexpected error occurred during the data generation.\n" + error.Line(), "&Show SQL", "",
         "&Close"});
    if (answer == kShowSql)
        platform::CurrentDialogs().Message(platform::Icon::None, platform::Replace(sqlInHand, "\r\n", "\n"));
}

class GenerationRun {
 public:
    GenerationRun(const OutputChoice& choice, RunProgress& progress) : choice_(choice), progress_(progress) {}

    bool Run();

 private:
    bool Generate();
    bool fPrepareWorkingDatabase();
    bool fFillWorkingDatabase();
    bool fRangesEnd() const;
    std::string SqlInHand() const { return pass_ ? pass_->SqlInHand() : std::string(); }

    const OutputChoice& choice_;
    RunProgress& progress_;
    std::unique_ptr<StatementTarget> target_;
    std::optional<WorkingDatabase> working_;
    std::unique_ptr<InsertPass> pass_;
};

bool GenerationRun::Run() {
    try {
        return Generate();
    } catch (const platform::Error& error) {
        platform::Error told = error;
        try {
            if (pass_)
                pass_->Abandon();
        } catch (const platform::Error& earlier) {
            told = earlier;  // of a statement that had been sent before
        }
        ShowUnexpectedError(told, SqlInHand());
        return false;
    }
}

bool GenerationRun::Generate() {
    progress_.Caption("Preparing Test Scenario for data generation");
    RepositoryScope repository;
    ValuesScope values;
    const ConnectionSlotScope slots;
    fInitProgressInsertSQL(progress_);
    if (!fRangesEnd() || (choice_.toDatabase && !fTargetTakesData()))
        return false;
    fClearStatusMarks();
    if (WorkingDatabaseNeeded() && !fPrepareWorkingDatabase())
        return false;
    LoadRunOptions(HeldOptions());
    if (choice_.toDatabase)
        target_ = SessionTarget();
    if (working_ && !fFillWorkingDatabase())
        return false;
    pass_ = std::make_unique<InsertPass>(choice_, HeldOptions(), progress_, target_.get(),
                                         working_ ? &*working_ : nullptr);
    return pass_->Run();
}

bool GenerationRun::fPrepareWorkingDatabase() {
    progress_.Caption("Creating empty temporary database");
    if (!fCreateTestDataDB(choice_.format))
        return false;
    if (!fFileExists(WorkingDatabasePath())) {
        platform::ShowCritical("Function 'TestDataGenerateAll' cannot locate " + WorkingDatabasePath());
        return false;
    }
    fSetStatusMarks();
    working_.emplace();
    return true;
}

bool GenerationRun::fFillWorkingDatabase() {
    progress_.Caption("Creating data in temporary database");
    if (!WorkingPass(*working_, HeldOptions(), choice_.format, progress_).Run())
        return false;
    progress_.Caption("Resolving foreign keys");
    ResolveForeignKeys(*working_);
    working_->Commit();
    return true;
}

// A range that runs backwards never comes to its end.
bool GenerationRun::fRangesEnd() const {
    const dao::Recordset rule = RepositoryDatabase.OpenRecordset(
        "select [Table].[Name], [Start Range], [End Range] from [TSO Insert Table Rule], [Table]"
        " where [TSO Insert Table Rule].[FK DBS Id] = ? and [FK TSO Id] = ? and [Quantity] > 0"
        " and [End Range] > 0 and [Start Range] > [End Range] and [Table].[Id] = [FK TAB Id]"
        " and [Table].[FK DBS Id] = [TSO Insert Table Rule].[FK DBS Id]"
        " order by [Sort Order] asc",
        {CurrentDBSId, CurrentTSOId});
    if (rule.IsEOF())
        return true;
    return platform::Refuse(
        "Cannot generate data for " +
        TableRuleLabel(rule.Text("Name"), rule.Long("Start Range"), rule.Long("End Range")) +
        "\n\nStart range must be less than or equal to end range");
}

}  // namespace

bool TestDataGenerateAll(const OutputChoice& choice, RunProgress& progress) {
    const bool done = GenerationRun(choice, progress).Run();
    progress.Finish();
    return done;
}

}  // namespace vellumark
