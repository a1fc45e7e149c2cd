#include "reports/layout_bands.h"

#include "reports/design_unit.h"
#include "reports/measured_text.h"
#include "reports/report_error.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QDir>
#include <QImageReader>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr double maxHeight = 1000;    // mm
constexpr double minHeight = 0.1;     // mm
constexpr double minThickness = 0.05; // mm
constexpr double maxThickness = 5;    // mm
/// Lengths in a file are decimal.
constexpr double rounding = 1e-6;

const LayoutNode::Choices<Qt::Alignment>& horizontalAlignments() {
    static const LayoutNode::Choices<Qt::Alignment> choices{
        {u"left"_s, Qt::AlignLeft}, {u"center"_s, Qt::AlignHCenter}, {u"right"_s, Qt::AlignRight}};
    return choices;
}

const LayoutNode::Choices<Qt::Alignment>& verticalAlignments() {
    static const LayoutNode::Choices<Qt::Alignment> choices{
        {u"top"_s, Qt::AlignTop}, {u"center"_s, Qt::AlignVCenter}, {u"bottom"_s, Qt::AlignBottom}};
    return choices;
}

const LayoutNode::Choices<BarcodeSymbology>& symbologies() {
    static const LayoutNode::Choices<BarcodeSymbology> choices{{u"code128"_s, BarcodeSymbology::code128},
                                                               {u"qrcode"_s, BarcodeSymbology::qrCode}};
    return choices;
}

FieldText fieldTextOf(const LayoutNode& node) {
    const auto pattern = node.text();
    try {
        return FieldText(pattern);
    } catch (const ReportError& error) {
        node.fail(text(TextId::layoutFields).arg(pattern, error.text()));
    }
}

Qt::Alignment alignmentOf(const LayoutNode& item, const QString& key,
                          const LayoutNode::Choices<Qt::Alignment>& choices) {
    const auto node = item.find(key);
    return node ? node->choice(choices) : choices.first().second;
}

double thicknessOf(const LayoutNode& node) {
    return node.number(minThickness, maxThickness);
}

TextItem textItemOf(const LayoutNode& item, const BandContext& context) {
    TextItem content;
    content.text = fieldTextOf(item.at(u"text"_s));
    content.font = context.fonts.value(QString());
    if (const auto node = item.find(u"font"_s)) {
        const auto name = node->text();
        if (name.isEmpty() || !context.fonts.contains(name)) {
            auto known = context.fonts.keys();
            known.removeAll(QString());
            known.sort();
            node->failUnknown(name, known);
        }
        content.font = context.fonts.value(name);
    }
    content.lineHeight = lineHeight(content.font);
    content.alignment = alignmentOf(item, u"align"_s, horizontalAlignments()) |
                        alignmentOf(item, u"valign"_s, verticalAlignments());
    return content;
}

LineItem lineItemOf(const LayoutNode& item, const BandContext&) {
    return {.thickness = thicknessOf(item.at(u"line"_s))};
}

BoxItem boxItemOf(const LayoutNode& item, const BandContext&) {
    const auto shade = item.find(u"shade"_s);
    return {.thickness = thicknessOf(item.at(u"box"_s)), .shade = shade ? shade->number(0, 1) : 0};
}

BarcodeItem barcodeItemOf(const LayoutNode& item, const BandContext&) {
    BarcodeItem content{.text = fieldTextOf(item.at(u"barcode"_s)),
                        .alignment = alignmentOf(item, u"align"_s, horizontalAlignments())};
    if (const auto node = item.find(u"symbology"_s))
        content.symbology = node->choice(symbologies());
    return content;
}

PictureItem pictureItemOf(const LayoutNode& item, const BandContext&) {
    const auto node = item.at(u"picture"_s);
    QImageReader reader(QDir(node.folder()).filePath(node.text()));
    auto picture = reader.read();
    if (picture.isNull())
        node.fail(text(TextId::layoutPicture).arg(node.text(), reader.errorString()));
    return {.picture = std::move(picture)};
}

DrawingItem drawingItemOf(const LayoutNode& item, const BandContext&) {
    return {.name = item.at(u"drawing"_s).text()};
}

template <auto read>
decltype(ReportItem::content) contentOf(const LayoutNode& item, const BandContext& context) {
    return read(item, context);
}

/// What an item can be: the key that says so, further keys, and whether its size must be given.
struct ItemKind {
    QString key;
    QStringList furtherKeys;
    bool hasSize = false;
    decltype(ReportItem::content) (*read)(const LayoutNode&, const BandContext&) = nullptr;
};

const QList<ItemKind>& itemKinds() {
    static const QList<ItemKind> kinds{
        {.key = u"text"_s,
         .furtherKeys = {u"font"_s, u"align"_s, u"valign"_s},
         .read = contentOf<textItemOf>},
        {.key = u"line"_s, .furtherKeys = {}, .read = contentOf<lineItemOf>},
        {.key = u"box"_s, .furtherKeys = {u"shade"_s}, .read = contentOf<boxItemOf>},
        {.key = u"barcode"_s,
         .furtherKeys = {u"symbology"_s, u"align"_s},
         .hasSize = true,
         .read = contentOf<barcodeItemOf>},
        {.key = u"picture"_s, .furtherKeys = {}, .hasSize = true, .read = contentOf<pictureItemOf>},
        {.key = u"drawing"_s, .furtherKeys = {}, .hasSize = true, .read = contentOf<drawingItemOf>},
    };
    return kinds;
}

const ItemKind& kindOf(const LayoutNode& item) {
    const auto keys = item.names();
    QStringList known;
    for (const auto& kind : itemKinds()) {
        if (keys.contains(kind.key))
            return kind;
        known << kind.key;
    }
    item.fail(text(TextId::layoutItemKind).arg(u'"' + known.join(u"\", \""_s) + u'"'));
}

/// The width that stands there, or what is left of the report's. A line without one goes downwards.
double widthOf(const LayoutNode& item, const ItemKind& kind, double x, double reportWidth) {
    const auto least = kind.key == u"text"_s ? 1 : minThickness;
    if (!item.has(u"width"_s)) {
        if (kind.key == u"line"_s)
            return 0;
        if (kind.hasSize || reportWidth - x < least)
            item.fail(text(TextId::layoutMissingKey).arg(u"width"_s));
        return reportWidth - x;
    }
    const auto node = item.at(u"width"_s);
    const auto width = node.number(least, maxHeight);
    if (x + width > reportWidth + rounding)
        node.fail(
            text(TextId::layoutPastWidth).arg(QString::number(x + width), QString::number(reportWidth)));
    return width;
}

ReportItem itemOf(const LayoutNode& node, const BandContext& context) {
    static const QStringList places{u"x"_s, u"y"_s, u"width"_s, u"height"_s};
    const auto& kind = kindOf(node);
    node.expectKeys(QStringList{kind.key} + places + kind.furtherKeys);

    ReportItem item;
    if (const auto x = node.find(u"x"_s))
        item.x = x->number(0, context.width);
    if (const auto y = node.find(u"y"_s))
        item.y = y->number(0, maxHeight);
    item.width = widthOf(node, kind, item.x, context.width);
    if (const auto height = node.find(u"height"_s))
        item.height = height->number(minHeight, maxHeight);
    else if (kind.hasSize)
        node.fail(text(TextId::layoutMissingKey).arg(u"height"_s));
    item.content = kind.read(node, context);
    return item;
}

} // namespace

QFont fontOf(const LayoutNode& node, const QFont& base) {
    node.expectKeys({u"family"_s, u"size"_s, u"bold"_s, u"italic"_s});
    auto font = base;
    if (const auto family = node.find(u"family"_s))
        font.setFamilies({family->text()});
    if (const auto size = node.find(u"size"_s))
        font.setPixelSize(unitsOfPoints(size->number(3, 100)));
    if (const auto bold = node.find(u"bold"_s))
        font.setBold(bold->flag());
    if (const auto italic = node.find(u"italic"_s))
        font.setItalic(italic->flag());
    return font;
}

ReportBand bandOf(const LayoutNode& node, const BandContext& context) {
    node.expectKeys({u"height"_s, u"items"_s});
    ReportBand band;
    if (const auto height = node.find(u"height"_s))
        band.height = height->number(0, maxHeight);
    if (const auto items = node.find(u"items"_s)) {
        for (const auto& item : items->elements())
            band.items.push_back(itemOf(item, context));
    }
    return band;
}

QList<ReportBand> bandsOf(const LayoutNode& node, const BandContext& context) {
    if (!node.isList())
        return {bandOf(node, context)};
    QList<ReportBand> bands;
    for (const auto& band : node.elements())
        bands << bandOf(band, context);
    return bands;
}

ReportTable tableOf(const LayoutNode& node, const BandContext& context) {
    node.expectKeys({u"rows"_s, u"emptyRows"_s, u"header"_s, u"row"_s});
    ReportTable table;
    table.rows = node.at(u"rows"_s).text();
    if (const auto emptyRows = node.find(u"emptyRows"_s))
        table.emptyRows = emptyRows->wholeNumber(0, 100);
    if (const auto header = node.find(u"header"_s))
        table.header = bandOf(*header, context);
    table.row = bandOf(node.at(u"row"_s), context);
    return table;
}

} // namespace kelvane
