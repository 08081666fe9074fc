#include "repository/screens/guide.h"

#include <QFile>
#include <QXmlStreamReader>
#include <algorithm>

#include "platform/error.h"
#include "platform/screens/qtText.h"

namespace vellumark {

namespace {

constexpr int kShortestMessage = 8;  // below that a part of a message says nothing

QByteArray ReadAll(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw platform::Error(platform::kFileNotFound, "File not found: '" + FromQt(path) + "'");
    return file.readAll();
}

bool IsHeading(QStringView name) {
    return name == u"h1" || name == u"h2" || name == u"h3";
}

bool HasAll(const QString& text, const QStringList& words) {
    return std::all_of(words.begin(), words.end(),
                       [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

// Reads a page piece by piece into sections and messages.
class PageReader {
 public:
    PageReader(const QByteArray& html, QString page, std::vector<GuideSection>& sections,
               QStringList& messages)
        : xml_(html), page_(std::move(page)), sections_(sections), messages_(messages) {}

    void Read() {
        while (!xml_.atEnd()) {
            xml_.readNext();
            if (xml_.isStartElement())
                Start();
            else if (xml_.isEndElement())
                End();
            else if (xml_.isCharacters())
                Text(xml_.text().toString());
        }
    }

 private:
    void Start() {
        const QStringView name = xml_.name();
        if (name == u"title")
            title_ = xml_.readElementText();
        else if (IsHeading(name))
            StartSection(xml_.attributes().value("id").toString());
        else if (name == u"dt")
            inMessage_ = page_ == "messages.html";
        else if (name == u"var")
            EndMessagePart();
    }

    void End() {
        const QStringView name = xml_.name();
        if (IsHeading(name)) {
            inHeading_ = false;
        } else if (name == u"dt") {
            EndMessagePart();
            inMessage_ = false;
        } else if (name == u"var") {
            message_.clear();
        }
    }

    void StartSection(const QString& anchor) {
        inHeading_ = true;
        const QString place = anchor.isEmpty() ? page_ : page_ + "#" + anchor;
        sections_.push_back({place, title_, "", ""});
    }

    void EndMessagePart() {
        const QString part = message_.simplified();
        if (inMessage_ && part.size() >= kShortestMessage)
            messages_ << part;
        message_.clear();
    }

    void Text(const QString& text) {
        if (inMessage_)
            message_ += text;
        if (sections_.empty() || !sections_.back().place.startsWith(page_))
            return;
        (inHeading_ ? sections_.back().title : sections_.back().text) += text;
    }

    QXmlStreamReader xml_;
    QString page_;
    QString title_;
    QString message_;
    bool inHeading_ = false;
    bool inMessage_ = false;
    std::vector<GuideSection>& sections_;
    QStringList& messages_;
};

}  // namespace

Guide::Guide(const QString& folder) {
    ReadContents(folder + "/index.html");
    for (std::size_t i = 0; i < contents_.size(); ++i)
        if (!contents_[i].place.contains('#'))
            ReadPage(folder, contents_[i].place);
}

void Guide::ReadContents(const QString& index) {
    QXmlStreamReader xml(ReadAll(index));
    int depth = 0;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.name() == u"ul")
            depth += xml.isStartElement() ? 1 : -1;
        else if (xml.isStartElement() && xml.name() == u"a" && depth > 0) {
            const QString place = xml.attributes().value("href").toString();
            contents_.push_back({xml.readElementText().simplified(), place, depth - 1});
        }
    }
}

void Guide::ReadPage(const QString& folder, const QString& page) {
    PageReader(ReadAll(folder + "/" + page), page, sections_, messages_).Read();
}

std::vector<GuideSection> Guide::Search(const QString& words) const {
    const QStringList wanted = words.simplified().split(' ', Qt::SkipEmptyParts);
    std::vector<GuideSection> hits;
    if (wanted.isEmpty())
        return hits;
    std::copy_if(sections_.begin(), sections_.end(), std::back_inserter(hits),
                 [&](const GuideSection& section) { return HasAll(section.title + section.text, wanted); });
    std::stable_partition(hits.begin(), hits.end(),
                          [&](const GuideSection& section) { return HasAll(section.title, wanted); });
    return hits;
}

QString Guide::PlaceOfScreen(const QString& screen) const {
    for (const GuideSection& section : sections_)
        if (section.place.section('#', 1) == screen)
            return section.place;
    return {};
}

QString Guide::MessageIn(const QString& text) const {
    const QString line = text.simplified();
    QString longest;
    for (const QString& message : messages_)
        if (message.size() > longest.size() && line.contains(message, Qt::CaseInsensitive))
            longest = message;
    return longest;
}

}  // namespace vellumark
