#pragma once

#include "OtherProgram.h"

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

namespace vantrel::tests {

/// What a desktop's settings daemon tells all programs, as it writes it (XSETTINGS specification).
class SettingsList {
public:
    explicit SettingsList(QDataStream::ByteOrder order = QDataStream::LittleEndian)
        : m_stream(&m_items, QIODevice::WriteOnly), m_order(order) {
        m_stream.setByteOrder(order);
    }

    SettingsList &number(const QByteArray &name, qint32 value) {
        begin(0, name);
        m_stream << value;
        return *this;
    }

    SettingsList &text(const QByteArray &name, const QByteArray &value) {
        begin(1, name);
        m_stream << static_cast<quint32>(value.size());
        padded(value);
        return *this;
    }

    SettingsList &color(const QByteArray &name) {
        begin(2, name);
        m_stream << quint64{0};
        return *this;
    }

    [[nodiscard]] QByteArray data() const {
        QByteArray all;
        QDataStream stream(&all, QIODevice::WriteOnly);
        stream.setByteOrder(m_order);
        stream << static_cast<quint8>(m_order == QDataStream::BigEndian) << quint8{} << quint16{}
               << quint32{7} << m_count;
        return all + m_items;
    }

private:
    void begin(quint8 type, const QByteArray &name) {
        ++m_count;
        m_stream << type << quint8{} << static_cast<quint16>(name.size());
        padded(name);
        m_stream << quint32{3};
    }

    void padded(const QByteArray &text) {
        m_stream.writeRawData(text.constData(), static_cast<int>(text.size()));
        for (auto size = text.size(); size % 4 != 0; ++size)
            m_stream << quint8{};
    }

    QByteArray m_items;
    QDataStream m_stream;
    QDataStream::ByteOrder m_order;
    quint32 m_count = 0;
};

/// Plays the settings daemon for as long as it lives.
class SettingsDaemon {
public:
    SettingsDaemon(OtherProgram &program, const QByteArray &data);
    SettingsDaemon(const SettingsDaemon &) = delete;
    SettingsDaemon &operator=(const SettingsDaemon &) = delete;
    ~SettingsDaemon();

private:
    OtherProgram &m_program;
    xcb_window_t m_window;
};

} // namespace vantrel::tests
