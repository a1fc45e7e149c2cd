#include "drivers/torquestar/characteristic.h"
#include "drivers/torquestar/codes.h"
#include "testkit/torque_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleTSInterface;

namespace {

const std::string fixedFields = "20 00 00 00 00 00 00 00 00 00 00 00 00 00 4e 20 01 5e 00 00 30 39";
const std::string wrenchFields =
    "03 01 1e 02 00 26 25 a0 00 03 00 03 00 05 03 01 00 0f de 80 00 0e a6 00 00 00 c3 50 00 00 61 a8 " +
    fixedFields;

} // namespace

class TorqueCharacteristic : public TorqueFixture {
  protected:
    /// The fields of one instrument alone.
    std::string fieldsOf(const CalParamRecord& instrument, const CalParamRecord& standard) {
        CharacteristicFields fields(session);
        EXPECT_EQ(fields.fill(session, instrument, standard), QString());
        return displayText(fields);
    }
    static std::string displayText(const CharacteristicFields& fields) {
        return fields.join().toHex(' ').toStdString();
    }

    /// The byte at a field of the wrench, where every field before it is filled.
    static std::string byteAt(const std::string& fields, std::size_t place) {
        return fields.substr(place * 3, 2);
    }
};

TEST_F(TorqueCharacteristic, HasAllItsFieldsInTheirOrder) {
    EXPECT_EQ(fieldsOf(wrench(), transducer()), wrenchFields);
}

TEST_F(TorqueCharacteristic, EachCodeTableIsWrittenRowByRow) {
    const auto check = [&](auto table, std::size_t place, auto set) {
        for (const auto& [word, code] : table) {
            auto tool = wrench();
            auto standard = transducer();
            set(tool, standard, word);
            EXPECT_EQ(byteAt(fieldsOf(tool, standard), place),
                      QByteArray(1, static_cast<char>(code)).toHex().toStdString())
                << place << " " << word.toStdString();
        }
    };
    using Table = QList<std::pair<QString, int>>;
    using Record = CalParamRecord&;
    using Word = const QString&;
    const Table units{{u"in/oz"_s, 1}, {u"in/lb"_s, 2}, {u"ft/lb"_s, 3},  {u"N/cm"_s, 4}, {u"N/m"_s, 5},
                      {u"Kg/cm"_s, 6}, {u"Kg/m"_s, 7},  {u"Klb/ft"_s, 8}, {u"KN/m"_s, 9}};
    check(Table{{u"High Output"_s, 1}, {u"Industry Standard"_s, 2}, {u"UTA"_s, 4}}, 3,
          [](Record, Record standard, Word word) { standard.transducer_type_out = word; });
    check(units, 9, [](Record, Record standard, Word word) { standard.input_type = word; });
    check(Table{{u"0.1"_s, 1},
                {u"0.2"_s, 2},
                {u"0.5"_s, 3},
                {u"1.0"_s, 4},
                {u"2.0"_s, 5},
                {u"5.0"_s, 6},
                {u"10.0"_s, 7}},
          11, [](Record tool, Record, Word word) { tool.cycle_end_time_out = word; });
    check(Table{{u"Click Dip"_s, 0}, {u"Peak"_s, 1}, {u"Impulse"_s, 2}}, 12,
          [](Record tool, Record, Word word) { tool.measurement_mode_out = word; });
    check(Table{{u"6144"_s, 0},
                {u"3686"_s, 1},
                {u"2304"_s, 2},
                {u"1676"_s, 3},
                {u"1317"_s, 4},
                {u"1024"_s, 5},
                {u"996"_s, 6},
                {u"737"_s, 7},
                {u"527"_s, 8},
                {u"376"_s, 9},
                {u"302"_s, 10},
                {u"252"_s, 11},
                {u"200"_s, 12},
                {u"150"_s, 13},
                {u"100"_s, 14},
                {u"75"_s, 15},
                {u"72"_s, 16}},
          13, [](Record tool, Record, Word word) { tool.frequency_response_out = word; });
    check(units, 14, [](Record tool, Record, Word word) { tool.output_type = word; });
    check(Table{{u"Right"_s, 1}, {u"Left"_s, 2}}, 15,
          [](Record tool, Record, Word word) { tool.measurement_direction_out = word; });
}

TEST_F(TorqueCharacteristic, ASerialTransducerOnTheFirstToolMakesAShorterMessage) {
    // samples, subgroups, type, format, baud rate, data bits, stop bits, parity, direction; no transducer
    // number, span or units.
    EXPECT_EQ(fieldsOf(wrench(), serialTransducer()),
              "03 01 03 03 05 07 02 02 00 00 0f de 80 00 0e a6 00 00 00 c3 50 00 00 61 a8 " + fixedFields);
}

TEST_F(TorqueCharacteristic, TheSerialTablesAreWrittenRowByRow) {
    const QList<std::pair<float, int>> formats{{1.0F, 1}, {0.1F, 2}, {0.01F, 3}, {0.001F, 4}};
    for (const auto& [resolution, code] : formats) {
        auto standard = serialTransducer();
        standard.resolution = resolution;
        EXPECT_EQ(byteAt(fieldsOf(wrench(), standard), 3), "0" + std::to_string(code)) << resolution;
    }
    const QList<std::pair<QString, int>> bauds{{u"300"_s, 1},  {u"600"_s, 2},  {u"1200"_s, 3}, {u"2400"_s, 4},
                                               {u"4800"_s, 5}, {u"9600"_s, 6}, {u"19200"_s, 7}};
    for (const auto& [baud, code] : bauds) {
        auto standard = serialTransducer();
        standard.baud_rate_out = baud;
        EXPECT_EQ(byteAt(fieldsOf(wrench(), standard), 4), "0" + std::to_string(code)) << baud.toStdString();
    }
    const QList<std::pair<QString, int>> parityCodes{{u"Even"_s, 1}, {u"Odd"_s, 2}, {u"None"_s, 3}};
    for (const auto& [word, code] : parityCodes) {
        auto standard = serialTransducer();
        standard.data_parity_out = word;
        EXPECT_EQ(byteAt(fieldsOf(wrench(), standard), 7), "0" + std::to_string(code)) << word.toStdString();
    }
}

TEST_F(TorqueCharacteristic, ATextThatIsNotInItsTableLeavesTheFieldUnchanged) {
    auto tool = wrench();
    tool.cycle_end_time_out = u"0.3"_s;
    tool.measurement_mode_out = u"peak"_s;
    tool.frequency_response_out = QString();
    tool.measurement_direction_out = u"Both"_s;
    auto standard = transducer();
    standard.transducer_type_out = u"other"_s;

    // On the first tool they are empty and add no bytes.
    EXPECT_EQ(fieldsOf(tool, standard),
              "03 01 1e 00 26 25 a0 00 03 00 03 00 0f de 80 00 0e a6 00 00 00 c3 50 00 00 61 a8 " +
                  fixedFields);

    // Behind another tool they are that tool's.
    CharacteristicFields fields(session);
    fields.fill(session, wrench(), transducer());
    fields.fill(session, tool, standard);
    EXPECT_EQ(displayText(fields), wrenchFields);

    auto serial = serialTransducer();
    serial.resolution = 0.5F;
    serial.baud_rate_out = u"115200"_s;
    serial.data_parity_out = u"Mark"_s;
    EXPECT_EQ(fieldsOf(wrench(), serial),
              "03 01 03 07 02 00 00 0f de 80 00 0e a6 00 00 00 c3 50 00 00 61 a8 " + fixedFields);
}

TEST_F(TorqueCharacteristic, ASerialTransducerBehindAnotherKeepsItsNumberSpanAndUnits) {
    CharacteristicFields fields(session);
    fields.fill(session, wrench(), transducer());
    fields.fill(session, wrench(), serialTransducer());
    EXPECT_EQ(
        displayText(fields),
        "03 01 1e 03 00 26 25 a0 03 03 05 07 02 02 03 00 00 0f de 80 00 0e a6 00 00 00 c3 50 00 00 61 a8 " +
            fixedFields);
}

TEST_F(TorqueCharacteristic, AUnitWithoutACodeRefusesTheToolAndBothTextsNameItsOutputUnit) {
    CharacteristicFields fields(session);
    auto standard = transducer();
    standard.input_type = u"psi"_s;
    EXPECT_EQ(fields.fill(session, wrench(), standard),
              u"TorqueStar cannot accept selected input units! ft/lb"_s);
    auto tool = wrench();
    tool.output_type = u"mV"_s;
    EXPECT_EQ(fields.fill(session, tool, transducer()),
              u"TorqueStar cannot accept selected output units! mV"_s);
    EXPECT_EQ(fields.fill(session, tool, standard), u"TorqueStar cannot accept selected input units! mV"_s);
    EXPECT_EQ(fields.fill(session, tool, serialTransducer()), QString()) << "a serial one looks at no units";
}

TEST_F(TorqueCharacteristic, CountsOutsideAByteAreAnInvalidArgument) {
    const auto refused = [&](const CalParamRecord& tool, const CalParamRecord& standard) {
        CharacteristicFields fields(session);
        try {
            fields.fill(session, tool, standard);
            ADD_FAILURE();
        } catch (const Error& error) {
            EXPECT_EQ(error.number, 5);
        }
    };
    auto tool = wrench();
    for (const qint16 count : {qint16{-1}, qint16{256}, qint16{32767}}) {
        tool.repetitions = count;
        refused(tool, transducer());
    }
    auto standard = serialTransducer();
    for (const auto& bits : {u"-1"_s, u"256"_s, u"1e30"_s}) {
        standard = serialTransducer();
        standard.data_bits_out = bits;
        refused(wrench(), standard);
        standard = serialTransducer();
        standard.stop_bits_out = bits;
        refused(wrench(), standard);
    }
    tool.repetitions = 255;
    EXPECT_EQ(byteAt(fieldsOf(tool, transducer()), 0), "ff");
    standard = serialTransducer();
    standard.data_bits_out = u"none"_s;
    standard.stop_bits_out = u"1.5"_s;
    EXPECT_EQ(fieldsOf(wrench(), standard).substr(5 * 3, 5), "00 02")
        << "numeric values, rounded half to even";
}

TEST_F(TorqueCharacteristic, ATorqueThatDoesNotFitIsReportedAndTheMessageGoesOutShort) {
    auto standard = transducer();
    standard.output_high = 214748.5F;
    ui.expectReport(6, u"ModuleTSInterface,Conv2Hex"_s);
    EXPECT_EQ(fieldsOf(wrench(), standard), "03 01 1e 02 " + wrenchFields.substr(8 * 3));
}

TEST_F(TorqueCharacteristic, SpanThresholdAndDipAreMultipliedInThirtyTwoBitsAndTheLimitsInSixtyFour) {
    auto tool = wrench();
    auto standard = transducer();
    standard.output_high = tool.threshold_torque_out = tool.click_dip_torque_out = 12345.678F;
    tool.input_high = 12345.678F;
    tool.pos_reading_pct = tool.neg_reading_pct = 0;
    const auto fields = fieldsOf(tool, standard);
    const auto inFloat = integer32(123456776).toHex(' ').toStdString();
    const auto inDouble = integer32(123456777).toHex(' ').toStdString(); // the float is 12345.677734375
    EXPECT_EQ(fields.substr(4 * 3, 11), inFloat);
    EXPECT_EQ(fields.substr(16 * 3, 11), inDouble);
    EXPECT_EQ(fields.substr(20 * 3, 11), inDouble);
    EXPECT_EQ(fields.substr(24 * 3, 11), inFloat);
    EXPECT_EQ(fields.substr(28 * 3, 11), inFloat);
}

TEST_F(TorqueCharacteristic, TheLimitsAreTheToleranceBandOfTheHighestPoint) {
    CalParamRecord tool;
    tool.input_low = 50;
    tool.input_high = 250;
    tool.max_test_point_pct = 75;
    EXPECT_EQ(torqueLimits(tool).maximum, 200);
    EXPECT_EQ(torqueLimits(tool).minimum, 200);

    // Each term alone, with another figure on each side.
    const struct {
        float CalParamRecord::*positive;
        float CalParamRecord::*negative;
        double maximum, minimum;
    } terms[] = {
        {&CalParamRecord::pos_span_pct, &CalParamRecord::neg_span_pct, 200 + 200 * 2.0 / 100,
         200 - 200 * 3.0 / 100},
        {&CalParamRecord::pos_fs_range_pct, &CalParamRecord::neg_fs_range_pct, 200 + 250 * 0.02,
         200 - 250 * 0.03},
        {&CalParamRecord::pos_reading_pct, &CalParamRecord::neg_reading_pct, 200 + 200 * 0.02,
         200 - 200 * 0.03},
        {&CalParamRecord::pos_lsd_counts, &CalParamRecord::neg_lsd_counts, 200 + 2 * 0.1, 200 - 3 * 0.1},
        {&CalParamRecord::pos_units, &CalParamRecord::neg_units, 202, 197},
    };
    int number = 0;
    for (const auto& term : terms) {
        auto changed = tool;
        changed.resolution = 0.1F; // counts as the double nearest to 0.1
        changed.*term.positive = 2;
        changed.*term.negative = 3;
        EXPECT_DOUBLE_EQ(torqueLimits(changed).maximum, term.maximum) << number;
        EXPECT_DOUBLE_EQ(torqueLimits(changed).minimum, term.minimum) << number;
        ++number;
    }
}

TEST_F(TorqueCharacteristic, EachTermOfTheLimitsIsWorkedOutInItsOwnOrder) {
    const double percentFirst = 7.0 / 100.0 * 100.0;
    const double percentLast = 100.0 * 7.0 / 100.0;
    ASSERT_NE(percentFirst, percentLast);
    CalParamRecord tool;
    tool.input_high = 100;

    auto changed = tool;
    changed.max_test_point_pct = 7;
    EXPECT_EQ(torqueLimits(changed).minimum, percentFirst) << "the highest point";

    changed = tool;
    changed.pos_span_pct = changed.neg_span_pct = 7;
    EXPECT_EQ(torqueLimits(changed).maximum, percentLast) << "span";
    EXPECT_EQ(torqueLimits(changed).minimum, -percentLast) << "span";

    changed = tool;
    changed.pos_fs_range_pct = changed.neg_fs_range_pct = 7;
    EXPECT_EQ(torqueLimits(changed).maximum, percentFirst) << "full scale";
    EXPECT_EQ(torqueLimits(changed).minimum, -percentFirst) << "full scale";

    changed = tool;
    changed.max_test_point_pct = 100;
    changed.pos_fs_range_pct = -100; // takes the point itself away again
    changed.neg_fs_range_pct = 100;
    changed.pos_reading_pct = changed.neg_reading_pct = 7;
    EXPECT_EQ(torqueLimits(changed).maximum, percentFirst) << "reading";
    EXPECT_EQ(torqueLimits(changed).minimum, -percentFirst) << "reading";
}

TEST_F(TorqueCharacteristic, TheRangeIsWidenedBeforeItsSpanIsTaken) {
    CalParamRecord tool;
    tool.input_low = 0.5F;
    tool.input_high = 16777216; // less a half, it is no 32-bit number
    tool.max_test_point_pct = 100;
    EXPECT_EQ(torqueLimits(tool).maximum, 16777216);
    EXPECT_EQ(torqueLimits(tool).minimum, 16777216);
}

TEST_F(TorqueCharacteristic, TheResolutionIsReadBackFromItsText) {
    CalParamRecord tool;
    tool.resolution = 0.1F;
    tool.pos_lsd_counts = 1;
    EXPECT_EQ(torqueLimits(tool).maximum, 0.1) << "not the widened 32-bit value";
}

TEST_F(TorqueCharacteristic, AMinimumBelowAFifthOfTheMaximumIsRefusedAndExactlyAFifthIsTaken) {
    auto tool = wrench();
    tool.pos_reading_pct = tool.neg_reading_pct = 0;
    CharacteristicFields fields(session);
    tool.neg_units = 80; // 20 against 100
    EXPECT_EQ(fields.fill(session, tool, transducer()), QString());
    tool.neg_units = 80.001F;
    EXPECT_EQ(fields.fill(session, tool, transducer()), u"Minimum Torque Out of Range!"_s);
    tool.neg_units = 79.999F;
    EXPECT_EQ(fields.fill(session, tool, transducer()), QString());
}

TEST(TorqueErrors, EveryCodeOfARoundHasItsText) {
    const QList<QString> texts{u"Round Already Exists!"_s, u"Invalid Name for Round!"_s,
                               u"Invalid Sample Mode!"_s, u"Invalid Number of Characteristics!"_s};
    for (int code = 0; code < 256; ++code) {
        const auto text = roundError(static_cast<quint8>(code));
        EXPECT_EQ(text.value_or(QString()), texts.value(code - 1)) << code;
        EXPECT_EQ(text.has_value(), code >= 1 && code <= 4) << code;
    }
}

TEST(TorqueErrors, EveryCodeOfACharacteristicHasItsText) {
    const QList<QString> texts{
        u"Unknown Error"_s,
        u"Characteristic Name Too Long!"_s,
        u"Number of Samples Out of Range!"_s,
        u"Number of Subgroups Out of Range!"_s,
        u"Transducer Number Out of Range!"_s,
        u"Transducer Type Setting Not Valid!"_s,
        u"Transducer Serial Format Setting Not Valid!"_s,
        u"Transducer Baud Rate Setting Not Valid!"_s,
        u"Transducer Units of Span Setting Not Valid!"_s,
        u"Transducer Data Bits Setting Not Valid!"_s,
        u"Cycle End Time Setting Not Valid!"_s,
        u"Transducer Stop Bits Setting Not Valid!"_s,
        u"Measure Mode Setting Not Valid!"_s,
        u"Transducer Parity Setting Not Valid!"_s,
        u"Frequency Response Setting Not Valid!"_s,
        u"Units of Display Setting Not Valid!"_s,
        u"Units of Display Incompatible With Transducer Units of Span!"_s,
        u"Measurement Direction Setting Not Valid!"_s,
        u"Maximum Torque Out Of Range!"_s,
        u"Minimum Torque Out Of Range!"_s,
        u"Threshold Torque Out Of Range!"_s,
        u"Click Dip Threshold Out Of Range!"_s,
        u"Comment Length Out Of Range!"_s,
        u"Secondary Parameter Setting Not Valid!"_s,
        u"Maximum Secondary Parameter Out Of Range!"_s,
        u"Minimum Secondary Parameter Out Of Range!"_s,
        u"Millivolts Per Volt Out Of Range!"_s,
        u"Insufficient Room in TorqueStar Database!"_s,
        u"Transduver Span Is Out Of Range!"_s,
    };
    ASSERT_EQ(texts.size(), 29);
    for (int code = 0; code < 256; ++code) {
        const auto text = characteristicError(static_cast<quint8>(code));
        EXPECT_EQ(text.value_or(QString()), texts.value(code)) << code;
        EXPECT_EQ(text.has_value(), code <= 28) << code;
    }
}

} // namespace kelvane::testing
