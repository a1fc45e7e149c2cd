#include "reports/report_layout.h"

#include "reports/design_unit.h"
#include "reports/layout_bands.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr double defaultMargin = 12; // mm
constexpr double defaultPoints = 9;

const LayoutNode::Choices<QPageSize::PageSizeId>& papers() {
    static const LayoutNode::Choices<QPageSize::PageSizeId> choices{{u"A4"_s, QPageSize::A4},
                                                                    {u"Letter"_s, QPageSize::Letter}};
    return choices;
}

const LayoutNode::Choices<QPageLayout::Orientation>& orientations() {
    static const LayoutNode::Choices<QPageLayout::Orientation> choices{
        {u"portrait"_s, QPageLayout::Portrait}, {u"landscape"_s, QPageLayout::Landscape}};
    return choices;
}

double marginOf(const LayoutNode& margins, const QString& side) {
    const auto margin = margins.find(side);
    return margin ? margin->number(0, 100) : defaultMargin;
}

QMarginsF marginsOf(const std::optional<LayoutNode>& node) {
    if (!node)
        return {defaultMargin, defaultMargin, defaultMargin, defaultMargin};
    node->expectKeys({u"left"_s, u"top"_s, u"right"_s, u"bottom"_s});
    return {marginOf(*node, u"left"_s), marginOf(*node, u"top"_s), marginOf(*node, u"right"_s),
            marginOf(*node, u"bottom"_s)};
}

/// What the papers that the layout may meet all have between its margins.
QSizeF sizeBetweenMargins(const ReportLayout& layout) {
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    QSizeF size(infinity, infinity);
    for (const auto& paper : papers()) {
        if (layout.paper.value_or(paper.second) == paper.second)
            size = size.boundedTo(QPageSize::size(paper.second, QPageSize::Millimeter));
    }
    if (layout.orientation == QPageLayout::Landscape)
        size.transpose();
    return size.shrunkBy(layout.margins);
}

double widthOf(const LayoutNode& root, double most) {
    if (most < 10)
        root.fail(text(TextId::layoutPaperWidth).arg(QString::number(10), QString::number(most)));
    const auto node = root.find(u"width"_s);
    if (!node)
        return most;
    const auto width = node->number(10, 1000);
    if (width > most)
        node->fail(text(TextId::layoutPaperWidth).arg(QString::number(width), QString::number(most)));
    return width;
}

QHash<QString, QFont> fontsOf(const LayoutNode& root) {
    QFont base(u"DejaVu Sans"_s);
    base.setPixelSize(unitsOfPoints(defaultPoints));
    base.setHintingPreference(QFont::PreferNoHinting);
    // The least spacing there is switches ligatures off: a search in a PDF then finds "field".
    base.setLetterSpacing(QFont::AbsoluteSpacing, 1.0 / 64);
    if (const auto font = root.find(u"font"_s))
        base = fontOf(*font, base);
    QHash<QString, QFont> fonts{{QString(), base}};
    if (const auto named = root.find(u"fonts"_s)) {
        for (const auto& name : named->names())
            fonts.insert(name, fontOf(named->at(name), base));
    }
    return fonts;
}

std::optional<ReportBand> optionalBand(const std::optional<LayoutNode>& node, const BandContext& context) {
    return node ? std::optional(bandOf(*node, context)) : std::nullopt;
}

QList<ReportBand> optionalBands(const std::optional<LayoutNode>& node, const BandContext& context) {
    return node ? bandsOf(*node, context) : QList<ReportBand>();
}

} // namespace

ReportLayout readLayout(const QString& path) {
    const auto root = readLayoutFile(path);
    root.expectKeys({u"paper"_s, u"orientation"_s, u"margins"_s, u"width"_s, u"font"_s, u"fonts"_s,
                     u"pageHeader"_s, u"groupHeader"_s, u"tables"_s, u"summary"_s, u"signature"_s,
                     u"pageFooter"_s});
    ReportLayout layout;
    if (const auto paper = root.find(u"paper"_s))
        layout.paper = paper->choice(papers());
    if (const auto orientation = root.find(u"orientation"_s))
        layout.orientation = orientation->choice(orientations());
    const auto margins = root.find(u"margins"_s);
    layout.margins = marginsOf(margins);
    const auto room = sizeBetweenMargins(layout);
    if (room.height() < minPageHeight)
        margins.value_or(root).fail(text(TextId::layoutPaperHeight)
                                        .arg(QString::number(room.height()), QString::number(minPageHeight)));
    layout.width = widthOf(root, room.width());

    const BandContext context{.width = layout.width, .fonts = fontsOf(root)};
    layout.pageHeader = optionalBand(root.find(u"pageHeader"_s), context);
    layout.groupHeader = optionalBands(root.find(u"groupHeader"_s), context);
    if (const auto tables = root.find(u"tables"_s)) {
        for (const auto& table : tables->elements())
            layout.tables << tableOf(table, context);
    }
    layout.summary = optionalBands(root.find(u"summary"_s), context);
    layout.signature = optionalBand(root.find(u"signature"_s), context);
    layout.pageFooter = optionalBand(root.find(u"pageFooter"_s), context);
    return layout;
}

} // namespace kelvane
