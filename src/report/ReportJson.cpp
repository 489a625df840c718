#include "report/ReportJson.h"

#include "report/CompatibilityMatrix.h"

#include <array>
#include <optional>
#include <span>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr std::array<const char*, stateItems.size()> itemKeys{"fisico", "emotivo", "intellettivo",
                                                              "media"};

/// Puts the commas, the line ends and the indents between the members of objects and arrays.
class JsonWriter {
  public:
    explicit JsonWriter(ReportStream& stream)
        : m_stream(stream) {}

    void open(char bracket) {
        m_stream.write(bracket);
        ++m_depth;
        m_isFirst = true;
    }
    void close(char bracket) {
        --m_depth;
        if (!m_isFirst) {
            newLine();
        }
        m_stream.write(bracket);
        m_isFirst = false;
    }
    /// Before each member of an array; of an object, `key` does it.
    void next() {
        if (!m_isFirst) {
            m_stream.write(',');
        }
        newLine();
        m_isFirst = false;
    }
    void key(const char* name) {
        next();
        m_stream.write('"');
        m_stream.write(name);
        m_stream.write("\": ");
    }

    void text(const QString& value) {
        m_stream.write('"');
        for (const char byte : value.toUtf8()) {
            textByte(byte);
        }
        m_stream.write('"');
    }
    void number(double value) { m_stream.writeNumber(value); }
    void integer(std::int64_t value) { m_stream.writeInteger(value); }
    void word(const char* value) { m_stream.write(value); }
    void date(std::int32_t dayNumber) {
        if (dayNumber > lastIsoDay()) {
            word("null");
            return;
        }
        m_stream.write('"');
        m_stream.writeIsoDate(dayNumber);
        m_stream.write('"');
    }

    /// Members of one line: {"a": 1, "b": 2}.
    void openInLine(const char* firstKey) {
        m_stream.write("{\"");
        m_stream.write(firstKey);
        m_stream.write("\": ");
    }
    void keyInLine(const char* name) {
        m_stream.write(", \"");
        m_stream.write(name);
        m_stream.write("\": ");
    }
    void closeInLine() { m_stream.write('}'); }

    void newLine() {
        m_stream.write('\n');
        for (int i = 0; i < m_depth; ++i) {
            m_stream.write("  ");
        }
    }

  private:
    void textByte(char byte) {
        constexpr std::array digits{'0', '1', '2', '3', '4', '5', '6', '7',
                                    '8', '9', 'a', 'b', 'c', 'd', 'e', 'f'};
        const auto code = static_cast<unsigned char>(byte);
        if (byte == '"' || byte == '\\') {
            m_stream.write('\\');
            m_stream.write(byte);
        } else if (code < 0x20 || code == 0x7F) {
            m_stream.write("\\u00");
            m_stream.write(digits[code >> 4U]);
            m_stream.write(digits[code & 0xFU]);
        } else {
            m_stream.write(byte);
        }
    }

    ReportStream& m_stream;
    int m_depth = 0;
    bool m_isFirst = true;
};

void writeState(JsonWriter& json, const ReportedState& state) {
    json.key("stato");
    json.open('{');
    for (const StateItem item : stateItems) {
        const auto index = static_cast<std::size_t>(item);
        json.key(itemKeys.at(index));
        json.openInLine("valore");
        json.number(state.today.at(index));
        json.keyInLine("ieri");
        json.number(state.yesterday.at(index));
        json.keyInLine("mostrato");
        json.integer(shownValue(state.shown.value(item)));
        json.keyInLine("andamento");
        json.word(state.shown.trend(item) == Trend::rising ? "\"salita\"" : "\"discesa\"");
        json.closeInLine();
    }
    json.close('}');
}

void writeForecast(JsonWriter& json, const Forecast& forecast, std::int32_t calculationDay) {
    const auto event = [&](const char* name, std::optional<std::int32_t> days) {
        json.key(name);
        if (!days) {
            json.word("null");
            return;
        }
        json.openInLine("giorni");
        json.integer(*days);
        json.keyInLine("data");
        json.date(calculationDay + *days);
        json.closeInLine();
    };
    json.key("previsioni");
    json.open('{');
    event("inversione", forecast.inversion);
    event("massimo", forecast.maximum);
    event("minimo", forecast.minimum);
    json.close('}');
}

void writePerson(JsonWriter& json, const SystemMember& member, std::int32_t calculationDay) {
    const ReportedPerson person = reportedPerson(member, calculationDay);
    json.open('{');
    json.key("nome");
    json.text(person.name);
    json.key("dataDiNascita");
    json.date(person.birthDay);
    json.key("giorni");
    json.integer(person.dayCount);
    writeState(json, person.state);
    writeForecast(json, person.state.forecast, calculationDay);
    json.close('}');
}

void writePercentages(JsonWriter& json, const std::optional<Compatibility>& value) {
    const auto percent = [&](const char* name, auto Compatibility::*part) {
        json.keyInLine(name);
        value ? json.number(static_cast<double>((*value).*part)) : json.word("null");
    };
    percent("totale", &Compatibility::overall);
    percent("fisica", &Compatibility::physical);
    percent("emotiva", &Compatibility::emotional);
    percent("intellettiva", &Compatibility::intellectual);
}

/// The list of pairs, or null for a system too large for it.
void writeCompatibility(JsonWriter& json, const ReportSubject& system, const ReportStream& stream) {
    json.key("compatibilita");
    if (system.members.size() > CompatibilityMatrix::maximumMembers) {
        json.word("null");
        return;
    }
    const CompatibilityMatrix matrix(system.members);
    json.open('[');
    matrix.visitInOrder([&](const auto& value, std::span<const CompatibilityMatrix::Pair> pairs) {
        for (const CompatibilityMatrix::Pair pair : pairs) {
            json.next();
            json.openInLine("prima");
            json.integer(pair.first);
            json.keyInLine("seconda");
            json.integer(pair.second);
            writePercentages(json, value);
            json.closeInLine();
        }
        return !stream.hasFailed();
    });
    json.close(']');
}

void writeSystem(JsonWriter& json, const ReportSubject& system, const ReportStream& stream) {
    const ReportedState mean = reportedMean(system);
    json.open('{');
    json.key("nome");
    json.text(system.name);
    json.key("membri");
    json.integer(std::ssize(system.members));
    json.key("media");
    json.open('{');
    writeState(json, mean);
    writeForecast(json, mean.forecast, system.firstDay);
    json.close('}');
    json.key("persone");
    json.open('[');
    for (const SystemMember& member : system.members) {
        if (stream.hasFailed()) {
            break;
        }
        json.next();
        writePerson(json, member, system.firstDay);
    }
    json.close(']');
    writeCompatibility(json, system, stream);
    json.close('}');
}

} // namespace

void writeJson(const ReportSubject& subject, ReportStream& stream) {
    JsonWriter json(stream);
    json.open('{');
    json.key("formato");
    json.word("\"quor\"");
    json.key("versione");
    json.integer(1);
    json.key("dataDiCalcolo");
    json.date(subject.firstDay);
    if (subject.isSystem) {
        json.key("sistema");
        writeSystem(json, subject, stream);
    } else {
        json.key("persona");
        writePerson(json, subject.members.front(), subject.firstDay);
    }
    json.close('}');
    json.newLine();
}

} // namespace quor
