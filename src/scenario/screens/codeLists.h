#pragma once

#include <QComboBox>
#include <span>
#include <string>

// Lists that show words for stored codes.
namespace vellumark {

struct CodeWord {
    const char* word;
    const char* code;
};

// Fills the list afresh.
void Offer(QComboBox& list, std::span<const CodeWord> words);

// Chooses the word of the code, or that of `otherwise` when the list has no such code. No word is chosen when
// it has neither.
void ShowCode(QComboBox& list, const std::string& code, const char* otherwise);

// The code of the chosen word; empty when there is none.
std::string CodeIn(const QComboBox& list);

}  // namespace vellumark
