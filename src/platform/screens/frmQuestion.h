#pragma once

#include <memory>

#include "platform/dialogs.h"
#include "platform/screens/screen.h"

namespace Ui {
class frmQuestion;
}

namespace vellumark {

// A question with up to three answers.
class frmQuestion : public Screen {
 public:
    frmQuestion(const platform::Choice& choice, QWidget* parent);
    ~frmQuestion() override;

    // 0 cancel, 1 or 2 for the buttons.
    int QuestionAnswer() const { return answer_; }

 private:
    void Answer(int answer);

    std::unique_ptr<Ui::frmQuestion> ui_;
    int answer_ = 0;
};

}  // namespace vellumark
