// Handing batches between two threads: order kept, failures passed on after the batches before
// them, and a consumer that gives up never leaves the producer hanging.
#include "catalog/sql/batchhandoff.h"

#include <QTest>

#include <stdexcept>
#include <thread>
#include <vector>

using namespace PickerCtl;

namespace {
using Batch = std::vector<int>;
using Handoff = BatchHandoff<Batch>;

/// Puts batches {0, 1, 2}, {3, 4, 5} ... then finishes or fails.
void produce(Handoff &handoff, int batches, bool fail)
{
    Batch batch;
    int next = 0;
    for (int b = 0; b < batches; ++b) {
        for (int i = 0; i < 3; ++i)
            batch.push_back(next++);
        if (!handoff.put(batch))
            return;
    }
    if (fail)
        handoff.fail(std::make_exception_ptr(std::runtime_error("broken row")));
    else
        handoff.finish();
}
} // namespace

class TestBatchHandoff : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldDeliverEveryItemInOrderThenTheEnd_data()
    {
        QTest::addColumn<int>("batches");
        QTest::addColumn<int>("waiting");
        QTest::addColumn<bool>("fail");
        QTest::newRow("nothing") << 0 << 4 << false;
        QTest::newRow("one waiting at a time") << 200 << 1 << false;
        QTest::newRow("room to run ahead") << 200 << 64 << false;
        QTest::newRow("failure after some batches") << 5 << 2 << true;
        QTest::newRow("failure before any batch") << 0 << 2 << true;
    }

    void shouldDeliverEveryItemInOrderThenTheEnd()
    {
        QFETCH(int, batches);
        QFETCH(int, waiting);
        QFETCH(bool, fail);
        Handoff handoff(static_cast<std::size_t>(waiting));
        std::thread producer(produce, std::ref(handoff), batches, fail);

        std::vector<int> received;
        bool failed = false;
        try {
            Batch batch;
            while (handoff.take(batch))
                received.insert(received.end(), batch.begin(), batch.end());
        } catch (const std::runtime_error &) {
            failed = true;
        }
        producer.join();

        QCOMPARE(failed, fail);
        QCOMPARE(int(received.size()), batches * 3);
        for (int i = 0; i < int(received.size()); ++i)
            QCOMPARE(received[size_t(i)], i);
    }

    void shouldReleaseABlockedProducerWhenTheConsumerCancels()
    {
        // Given a producer blocked on a full hand-off that holds one batch
        Handoff handoff(1);
        std::thread producer(produce, std::ref(handoff), 1000, false);
        Batch batch;
        QVERIFY(handoff.take(batch));

        // When the consumer gives up, Then the producer stops and the thread ends
        handoff.cancel();
        producer.join();
        Batch late{1};
        QVERIFY(!handoff.put(late));
    }
};

QTEST_GUILESS_MAIN(TestBatchHandoff)
#include "tst_batchhandoff.moc"
