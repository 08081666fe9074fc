#pragma once

#include <QDateTimeEdit>
#include <string>

#include "repository/modTargetFormats.h"

// A field that picks the constant of a column of type Date, Time or TimeStamp.
namespace vellumark {

bool IsMoment(DataType type);

// Makes the field pick values of that type.
void OfferMoments(QDateTimeEdit& field, DataType type);

// Shows a constant; what it doesn't tell is taken from today and now.
void ShowMoment(QDateTimeEdit& field, const std::string& constant);

// The constant that the field shows.
std::string MomentIn(const QDateTimeEdit& field);

}  // namespace vellumark
