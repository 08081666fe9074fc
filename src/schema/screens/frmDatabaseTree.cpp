#include "schema/screens/frmDatabaseTree.h"

#include <QHeaderView>
#include <QPrintDialog>
#include <QPrinter>
#include <QTextDocument>
#include <QTreeWidget>
#include <map>

#include "platform/screens/qtText.h"
#include "repository/modVellumark.h"
#include "ui_frmDatabaseTree.h"

namespace vellumark {

namespace {

enum TreeColumn {
    kName,
    kAttribute,
    kType,
    kSize,
    kPrecision,
    kScale,
    kIdentifier,
    kOptional,
    kForeignTable,
    kForeignColumn,
};

constexpr int kNameWidth = 260;

QString NumberText(std::optional<int> number) {
    return number ? QString::number(*number) : QString();
}

QString YesNo(bool yes) {
    return yes ? "Yes" : "No";
}

QStringList TextsOf(const EditedColumn& column) {
    return {ToQt(column.name),        ToQt(column.attributeName),   ToQt(DataTypeName(column.dataType)),
            NumberText(column.size),  NumberText(column.precision), NumberText(column.scale),
            YesNo(column.identifier), YesNo(column.optional),       ToQt(column.parentTable),
            ToQt(column.parentColumn)};
}

std::unique_ptr<QTreeWidgetItem> ColumnItem(const EditedColumn& column, int place) {
    auto item = std::make_unique<QTreeWidgetItem>(TextsOf(column));
    item->setData(kName, Qt::UserRole, place);
    for (const int number : {kSize, kPrecision, kScale})
        item->setTextAlignment(number, Qt::AlignRight | Qt::AlignVCenter);
    return item;
}

QString TableText(const EditedTable& table) {
    if (table.entityName.empty())
        return ToQt(table.name);
    return ToQt(table.entityName + " (" + table.name + ")");
}

QString HtmlRow(const QTreeWidgetItem& item, const QString& cell, int columns) {
    QString row = "<tr>";
    for (int column = 0; column < columns; ++column)
        row += "<" + cell + ">" + item.text(column).toHtmlEscaped() + "</" + cell + ">";
    return row + "</tr>";
}

}  // namespace

frmDatabaseTree::frmDatabaseTree(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmDatabaseTree>()), columns_(ListAllColumns()) {
    ui_->setupUi(this);
    setWindowTitle(windowTitle() + ": " + ToQt(CurrentDBSName));
    ui_->treeSchema->setHeaderLabels({"Column Name", "Attribute Name", "Data Type", "Size (Bytes)",
                                      "Numeric Precision", "Numeric Scale", "Identifier", "Optional",
                                      "Foreign Table", "Foreign Column"});
    ShowTables();
    ui_->treeSchema->expandAll();
    for (int column = kAttribute; column <= kForeignColumn; ++column)
        ui_->treeSchema->resizeColumnToContents(column);
    ui_->treeSchema->collapseAll();
    ui_->treeSchema->setColumnWidth(kName, kNameWidth);
    connect(ui_->treeSchema, &QTreeWidget::currentItemChanged, this, &frmDatabaseTree::ShowDetails);
    connect(ui_->txtFind, &QLineEdit::textChanged, this, &frmDatabaseTree::Find);
    connect(ui_->cmdExpand, &QPushButton::clicked, ui_->treeSchema, &QTreeView::expandAll);
    connect(ui_->cmdCollapse, &QPushButton::clicked, ui_->treeSchema, &QTreeView::collapseAll);
    connect(ui_->cmdPrint, &QPushButton::clicked, this, &frmDatabaseTree::Print);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    ui_->treeSchema->setFocus();
    resize(1180, 520);
}

frmDatabaseTree::~frmDatabaseTree() = default;

void frmDatabaseTree::ShowTables() {
    std::map<int, QTreeWidgetItem*> tables;
    for (const EditedTable& table : ListEditedTables()) {
        auto item = std::make_unique<QTreeWidgetItem>(QStringList(TableText(table)));
        item->setData(kName, Qt::UserRole, -1);
        tables[table.id] = item.get();
        ui_->treeSchema->addTopLevelItem(item.release());
    }
    for (std::size_t i = 0; i < columns_.size(); ++i)
        if (const auto table = tables.find(columns_[i].tableId); table != tables.end())
            table->second->addChild(ColumnItem(columns_[i], static_cast<int>(i)).release());
    ui_->treeSchema->setCurrentItem(ui_->treeSchema->topLevelItem(0));
}

void frmDatabaseTree::ShowDetails(QTreeWidgetItem* item) {
    const int place = item == nullptr ? -1 : item->data(kName, Qt::UserRole).toInt();
    if (place < 0) {
        ui_->lblDetails->setText(" ");
        return;
    }
    const EditedColumn& column = columns_[static_cast<std::size_t>(place)];
    const bool character = column.dataType == DataType::Character;
    QString text = "Data Type: " + ToQt(DataTypeName(column.dataType));
    if (character || TakesPrecision(column.dataType))
        text += "    Length: " + NumberText(character ? column.maximumLength : column.precision);
    text += "    Size: " + NumberText(column.size);
    if (TakesScale(column.dataType))
        text += "    Decimal Places: " + NumberText(column.scale);
    ui_->lblDetails->setText(text);
}

// A table stays when its own name fits, with all its columns, or when a column's does.
void frmDatabaseTree::Find(const QString& text) {
    for (int i = 0; i < ui_->treeSchema->topLevelItemCount(); ++i) {
        QTreeWidgetItem& table = *ui_->treeSchema->topLevelItem(i);
        const bool tableFits = table.text(kName).contains(text, Qt::CaseInsensitive);
        bool columnFits = false;
        for (int j = 0; j < table.childCount(); ++j) {
            const bool fits = table.child(j)->text(kName).contains(text, Qt::CaseInsensitive);
            table.child(j)->setHidden(!tableFits && !fits);
            columnFits = columnFits || fits;
        }
        table.setHidden(!tableFits && !columnFits);
        if (!text.isEmpty())
            table.setExpanded(columnFits && !tableFits);
    }
}

void frmDatabaseTree::PrintTo(QPrinter& printer) const {
    const int columns = ui_->treeSchema->columnCount();
    QString html =
        "<h3>" + ToQt(CurrentDBSName).toHtmlEscaped() +
        "</h3><table border='1' cellspacing='0' cellpadding='3' style='border-collapse: collapse'><thead>" +
        HtmlRow(*ui_->treeSchema->headerItem(), "th", columns) + "</thead>";
    for (int i = 0; i < ui_->treeSchema->topLevelItemCount(); ++i) {
        const QTreeWidgetItem& table = *ui_->treeSchema->topLevelItem(i);
        if (table.isHidden())
            continue;
        html += QString("<tr><td colspan='%1'><b>").arg(columns) + table.text(kName).toHtmlEscaped() +
                "</b></td></tr>";
        for (int j = 0; table.isExpanded() && j < table.childCount(); ++j)
            if (!table.child(j)->isHidden())
                html += HtmlRow(*table.child(j), "td", columns);
    }
    QTextDocument document;
    QFont font = document.defaultFont();
    font.setPointSize(7);
    document.setDefaultFont(font);
    document.setHtml(html + "</table>");
    document.print(&printer);
}

void frmDatabaseTree::Print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        PrintTo(printer);
}

}  // namespace vellumark
