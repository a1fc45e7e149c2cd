#include "reports/barcode.h"

#include "reports/design_unit.h"

#include <QPainter>

#include <zint.h>

#include <memory>

namespace kelvane {

namespace {

/// What the library takes as one module.
constexpr double moduleSize = 2;
constexpr double minModule = 0.12; // mm
constexpr double maxModule = 0.4;  // mm

int symbologyNumber(BarcodeSymbology symbology) {
    return symbology == BarcodeSymbology::code128 ? BARCODE_CODE128 : BARCODE_QRCODE;
}

} // namespace

Barcode barcodeOf(const QString& text, BarcodeSymbology symbology) {
    const std::unique_ptr<zint_symbol, void (*)(zint_symbol*)> symbol(ZBarcode_Create(), &ZBarcode_Delete);
    symbol->symbology = symbologyNumber(symbology);
    symbol->input_mode = UNICODE_MODE;
    symbol->show_hrt = 0;
    symbol->output_options |= BARCODE_QUIET_ZONES;
    const auto bytes = text.toUtf8();
    if (bytes.isEmpty() || bytes.size() > ZINT_MAX_DATA_LEN)
        return {};
    const auto* source = reinterpret_cast<const unsigned char*>(bytes.constData());
    const auto length = static_cast<int>(bytes.size());
    if (ZBarcode_Encode_and_Buffer_Vector(symbol.get(), source, length, 0) >= ZINT_ERROR)
        return {};

    const auto modules = [](float units) { return static_cast<double>(units) / moduleSize; };
    Barcode barcode{.size = {modules(symbol->vector->width), modules(symbol->vector->height)}, .bars = {}};
    for (const auto* bar = symbol->vector->rectangles; bar != nullptr; bar = bar->next)
        barcode.bars << QRectF(modules(bar->x), modules(bar->y), modules(bar->width), modules(bar->height));
    return barcode;
}

void paintBarcode(QPainter& painter, const Barcode& barcode, BarcodeSymbology symbology,
                  Qt::Alignment alignment, const QRectF& place) {
    if (barcode.bars.isEmpty())
        return;
    auto module = std::min(place.width() / barcode.size.width(), unitsOfMillimetres(maxModule));
    if (symbology == BarcodeSymbology::qrCode)
        module = std::min(module, place.height() / barcode.size.height());
    if (module < unitsOfMillimetres(minModule))
        return;

    const auto moduleHeight =
        symbology == BarcodeSymbology::qrCode ? module : place.height() / barcode.size.height();
    const auto blank = place.width() - module * barcode.size.width();
    auto left = place.left();
    if (alignment & Qt::AlignRight)
        left += blank;
    else if (alignment & Qt::AlignHCenter)
        left += blank / 2;
    for (const auto& bar : barcode.bars)
        painter.fillRect(QRectF(left + bar.left() * module, place.top() + bar.top() * moduleHeight,
                                bar.width() * module, bar.height() * moduleHeight),
                         Qt::black);
}

} // namespace kelvane
