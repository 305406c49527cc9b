#include "link/frame_reader.h"

#include "support/golden.h"
#include "support/suite.h"

using Golden::Ascii;
using Golden::Hex;

namespace {

using Log = QList<QByteArray>;
using State = FrameReader::State;

/// Feeds one piece of a stream and writes down every event: "header <type>", "reply <type>: <payload>",
/// "text: <text>", "broken".
Log Feed(FrameReader& reader, const QByteArray& piece) {
    // Memory of its own, so that a look beyond the piece or at a piece that is gone shows.
    const QByteArray bytes(piece.constData(), piece.size());
    QByteArrayView input = bytes;
    Log log;
    while (log.size() < 100) {
        const State state = reader.Next(input);
        const auto type = [&] { return QByteArray::number(int(reader.Type())); };
        switch (state) {
        case State::NeedsMore:
            if (!input.isEmpty())
                log += "input left over";
            return log;
        case State::Header: log += "header " + type(); break;
        case State::Reply: log += "reply " + type() + ": " + reader.Payload().toByteArray(); break;
        case State::Text: log += "text: " + reader.Payload().toByteArray(); break;
        case State::Broken: log += "broken"; break;
        }
    }
    return log + Log{"no end of events"};
}

Log FeedAll(FrameReader& reader, const QByteArray& stream, qsizetype pieceLength) {
    Log log;
    for (qsizetype at = 0; at < stream.size(); at += pieceLength)
        log += Feed(reader, stream.mid(at, pieceLength));
    return log;
}

QByteArray ResultFrame() {
    return Hex("00 00 00 00 10 01 01 00") + Golden::Result();
}

Log ResultLog() {
    return {"header 1", "reply 1: " + Golden::Result()};
}

/// Bytes that show where one is lost or swapped, an asterisk first.
QByteArray Payload(int length) {
    QByteArray bytes(length, '*');
    for (int i = 1; i < length; ++i)
        bytes[i] = char('a' + i % 23);
    return bytes;
}

/// One frame of every kind, the largest reply among them.
QByteArray MixedStream() {
    return Golden::Join({
        Golden::BareHeader(),
        ResultFrame(),
        Ascii("**00020\r") + Ascii("RESULT_X\r\nab"),
        Hex("2A 00 2A 2A 0C 00 17 00") + Ascii("log\n"),
        Hex("FF FF FF FF 14 7C 18 00") + Golden::StatusPage(),
        Ascii("**00008x"),
        Golden::BareHeader(),
    });
}

Log MixedLog() {
    return Log{"header 4", "reply 4: "} + ResultLog() +
           Log{"text: RESULT_X\r\nab",
               "header 23",
               "reply 23: log\n",
               "header 24",
               "reply 24: " + Golden::StatusPage(),
               "text: ",
               "header 4",
               "reply 4: "};
}

} // namespace

class FrameReaderTest : public QObject {
    Q_OBJECT

private slots:
    void PiecesOfAnyLengthGiveTheSameLog() {
        // One reader for all, which has to come out of every round between frames.
        FrameReader reader;
        for (const int length : {1, 2, 3, 7, 8, 9, 1000})
            QVERIFY2(FeedAll(reader, MixedStream(), length) == MixedLog(),
                     qPrintable(QStringLiteral("pieces of %1").arg(length)));
        const QByteArray stream = Ascii("**00010 ok") + ResultFrame() + Ascii("**00008x");
        for (qsizetype cut = 0; cut <= stream.size(); ++cut) {
            Log log = Feed(reader, stream.first(cut));
            log += Feed(reader, stream.sliced(cut));
            QCOMPARE(log, Log{"text: ok"} + ResultLog() + Log{"text: "});
        }
    }

    void BrokenHeaders() {
        for (const QByteArray& header :
             {Hex("00 00 00 00 00 00 01 00"), Hex("00 00 00 00 07 00 01 00"), Hex("00 00 00 00 FF FF 01 00"),
              Hex("00 00 00 00 00 80 01 00"), Ascii("**00000x"), Ascii("**00007x"), Ascii("**0002ax"),
              Ascii("**9 000x"), Ascii("**   20x"), Ascii("**+0020x"), Ascii("**-0020x"),
              Hex("2A 2A 00 00 00 00 00 00"), Hex("2A 2A FF B0 B1 B2 B3 30")})
            for (const int length : {1, 1000}) {
                FrameReader reader;
                QCOMPARE(FeedAll(reader, header + ResultFrame(), length), Log{"broken"} + ResultLog());
            }
    }

    void UnusualReplies() {
        // An unknown and a negative type, the longest reply, asterisks that make no text frame.
        for (const auto& [header, length, type] : {std::tuple(Hex("00 00 00 00 0A 00 63 00"), 2, "99"),
                                                   std::tuple(Hex("00 00 00 00 0A 00 FF FF"), 2, "-1"),
                                                   std::tuple(Hex("00 00 00 00 FF 7F 01 00"), 32759, "1"),
                                                   std::tuple(Ascii("*1**") + Hex("09 00 05 00"), 1, "5"),
                                                   std::tuple(Ascii("1***") + Hex("09 00 05 00"), 1, "5")}) {
            const QByteArray payload = Payload(length);
            FrameReader reader;
            const Log expected{QByteArray("header ") + type, QByteArray("reply ") + type + ": " + payload};
            QCOMPARE(FeedAll(reader, header + payload + ResultFrame(), 1000), expected + ResultLog());
        }
    }

    void LongestTextFrame() {
        FrameReader reader;
        const QByteArray text = Payload(99991);
        QVERIFY(FeedAll(reader, Ascii("**99999 ") + text + ResultFrame(), 1460) ==
                Log{"text: " + text} + ResultLog());
    }

    /// A reader that stops between two replies, as a pass does whose time is up, finds the second one where
    /// it was. A header comes before its payload; a frame that lies whole in the input isn't copied.
    void TakesOneEventAtATime() {
        const QByteArray first = ResultFrame();
        const QByteArray second = Ascii("**00010 ok");
        const QByteArray stream = first + second;
        FrameReader reader;
        QCOMPARE(Feed(reader, first.first(8)), Log{"header 1"});
        QCOMPARE(Feed(reader, {}), Log{});
        QCOMPARE(Feed(reader, first.sliced(8)), ResultLog().sliced(1));

        QByteArrayView input = stream;
        QCOMPARE(reader.Next(input), State::Header);
        QCOMPARE(input.size(), stream.size() - 8);
        QCOMPARE(reader.Next(input), State::Reply);
        QVERIFY(reader.Payload() == Golden::Result());
        QVERIFY(reader.Payload().data() == stream.constData() + 8);
        QVERIFY(input == second);
        QCOMPARE(reader.Next(input), State::Text);
        QVERIFY(reader.Payload() == "ok");
        QCOMPARE(reader.Next(input), State::NeedsMore);
    }

    void ResetStartsBetweenFrames() {
        for (const QByteArray& begun :
             {ResultFrame().first(5), ResultFrame().first(8), ResultFrame().first(200), Ascii("**000"),
              Ascii("**00020x"), Ascii("**00020xabc"), Hex("00 00 00 00 00 00 01 00 00 00")}) {
            FrameReader reader;
            FeedAll(reader, begun, 3);
            reader.Reset();
            QCOMPARE(FeedAll(reader, ResultFrame() + Ascii("**00010 ok"), 100),
                     ResultLog() + Log{"text: ok"});
        }
    }
};

SUITE(FrameReaderTest);

#include "frame_reader_test.moc"
