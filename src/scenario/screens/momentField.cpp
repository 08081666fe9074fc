#include "scenario/screens/momentField.h"

#include "platform/calendar.h"
#include "platform/screens/qtText.h"

namespace vellumark {

namespace {

constexpr const char* kDate = "yyyy-MM-dd";
constexpr const char* kTime = "HH:mm:ss";
constexpr const char* kTimestamp = "yyyy-MM-dd HH:mm:ss";

QString FormatOf(DataType type) {
    if (type == DataType::Date)
        return kDate;
    return type == DataType::Time ? kTime : kTimestamp;
}

}  // namespace

bool IsMoment(DataType type) {
    return type == DataType::Date || type == DataType::Time || type == DataType::TimeStamp;
}

void OfferMoments(QDateTimeEdit& field, DataType type) {
    field.setTimeSpec(Qt::UTC);  // no hour is missing for a change of the clocks
    field.setDisplayFormat(FormatOf(type));
    field.setCalendarPopup(type != DataType::Time);
    // A format without a date has held the range to one day.
    field.setDateTimeRange(QDateTime(QDate(platform::kFirstYear, 1, 1), QTime(0, 0), Qt::UTC),
                           QDateTime(QDate(platform::kLastYear, 12, 31), QTime(23, 59, 59), Qt::UTC));
}

void ShowMoment(QDateTimeEdit& field, const std::string& constant) {
    const QString text = ToQt(constant);
    const bool timeOnly = field.displayFormat() == kTime;
    const QDate date = timeOnly ? QDate() : QDate::fromString(text.left(10), kDate);
    const QTime time = QTime::fromString(text.mid(timeOnly ? 0 : 11, 8), kTime);
    field.setDateTime(QDateTime(date.isValid() ? date : QDate::currentDate(),
                                time.isValid() ? time : QTime::currentTime(), Qt::UTC));
}

std::string MomentIn(const QDateTimeEdit& field) {
    return FromQt(field.dateTime().toString(field.displayFormat()));
}

}  // namespace vellumark
