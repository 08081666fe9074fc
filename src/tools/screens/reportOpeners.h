#pragma once

// The reports of the open Database schema, written and shown in the desktop's viewer.
namespace vellumark {

void ShowDefinitionReport();
// Asks how to sort it.
void ShowTablesReport();

}  // namespace vellumark
