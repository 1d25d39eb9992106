#include "X11/Selections/SelectionsWorker.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <deque>

#include <malloc.h>
#include <poll.h>
#include <pthread.h>

#include "X11/Selections/LargeBlocks.h"
#include "X11/Selections/LargeTexts.h"
#include "X11/Selections/PictureConverter.h"
#include "X11/Selections/WorkerInbox.h"
#include "X11/Selections/XcbSelectionConnection.h"

namespace tessel {

namespace {

enum class Waiting { forSomething, notAtAll };

/// Signals are for the main thread.
void blockSignals()
{
    sigset_t everySignal;
    sigfillset(&everySignal);
    pthread_sigmask(SIG_BLOCK, &everySignal, nullptr);
}

/// Milliseconds to wait for `deadline`, rounded up so that it has passed then; -1 without one.
int millisecondsUntil(std::optional<Moment> deadline)
{
    if (!deadline)
        return -1;
    using namespace std::chrono;
    const auto left = ceil<milliseconds>(*deadline - steady_clock::now());
    return static_cast<int>(std::max<milliseconds::rep>(left.count(), 0));
}

} // namespace

/// Everything that lives on the worker thread. Long work runs from the top of the loop only, one piece at a
/// time, and takes a breath now and then in which everything else goes on.
class SelectionsWorker::Thread {
public:
    Thread(std::unique_ptr<XcbSelectionConnection> connection, FingerprintRule rule,
           ReadingHandler onReading);

    void run();
    /// From any thread.
    void post(std::function<void()> work) { inbox_->post(std::move(work)); }
    void stop();
    SelectionCoordinator& coordinator() { return coordinator_; }
    void whenAvailable(std::function<void()> done);
    void handOn(const HandoverPatience& patience, std::function<void()> done);

private:
    struct Preparation {
        WriteGeneration generation;
        SelectionValue value;
    };
    struct Conversion {
        SelectionServer::SharedOffer offer;
        AtomID target;
    };

    void turn(Waiting waiting);
    void wait(int milliseconds);
    bool hasLongWork() const { return preparation_ || !conversions_.empty(); }
    void runLongWork();
    void prepare(Preparation preparation);
    void convert(const Conversion& conversion);
    void received(WriteGeneration generation, ReceivedValue received);
    void deliver(WriteGeneration generation, SharedText text, SharedImage image);
    SharedBytes shared(SharedBytes bytes);
    SharedText sharedText(SharedText text);
    void giveMemoryBack();

    std::shared_ptr<WorkerInbox> inbox_ = std::make_shared<WorkerInbox>();
    std::unique_ptr<XcbSelectionConnection> connection_;
    SelectionCoordinator coordinator_;
    FingerprintRule rule_;
    ReadingHandler onReading_;
    std::atomic<bool> isStopping_ = false;
    XcbSelectionConnection::Backlog backlog_ = XcbSelectionConnection::Backlog::some;
    std::optional<Preparation> preparation_;
    bool isPreparationWanted_ = false;
    std::deque<Conversion> conversions_;
    bool hasFreedMuch_ = false;
    LargeTexts largeTexts_;
};

SelectionsWorker::Thread::Thread(std::unique_ptr<XcbSelectionConnection> connection, FingerprintRule rule,
                                 ReadingHandler onReading)
    : connection_(std::move(connection))
    , coordinator_(*connection_, connection_->atoms())
    , rule_(std::move(rule))
    , onReading_(std::move(onReading))
{
    coordinator_.onValue = [this](WriteGeneration generation, ReceivedValue value) {
        received(generation, std::move(value));
    };
    coordinator_.shareText = [this](SharedText text) { return sharedText(std::move(text)); };
    coordinator_.onSuperseded = [this] {
        hasFreedMuch_ = hasFreedMuch_ || preparation_;
        preparation_.reset();
        isPreparationWanted_ = false;
    };
    coordinator_.onPictureWanted = [this](SelectionServer::SharedOffer offer, AtomID target) {
        conversions_.push_back({std::move(offer), target});
    };
    if (connection_->isClipboardOwned())
        coordinator_.keepPresentValue();
    if (connection_->isClipboardManagerFree())
        coordinator_.becomeClipboardManager();
}

void SelectionsWorker::Thread::run()
{
    while (!isStopping_) {
        turn(hasLongWork() ? Waiting::notAtAll : Waiting::forSomething);
        runLongWork();
        giveMemoryBack();
    }
}

void SelectionsWorker::Thread::stop()
{
    isStopping_ = true;
    post([] {});
}

void SelectionsWorker::Thread::whenAvailable(std::function<void()> done)
{
    if (connection_->isLost())
        return done();
    coordinator_.whenAvailable(std::move(done));
}

void SelectionsWorker::Thread::handOn(const HandoverPatience& patience, std::function<void()> done)
{
    if (connection_->isLost())
        return done();
    coordinator_.setHandoverPatience(patience);
    coordinator_.handOn(std::chrono::steady_clock::now(), std::move(done));
}

void SelectionsWorker::Thread::turn(Waiting waiting)
{
    const bool mustWait =
        waiting == Waiting::forSomething && backlog_ == XcbSelectionConnection::Backlog::none;
    if (connection_->isLost())
        coordinator_.connectionLost();
    const auto deadline = connection_->isLost() ? std::nullopt : coordinator_.deadline();
    wait(mustWait ? millisecondsUntil(deadline) : 0);
    for (auto& work : inbox_->takeAll())
        work();
    backlog_ = XcbSelectionConnection::Backlog::none;
    if (connection_->isLost())
        return;
    coordinator_.timePassed(std::chrono::steady_clock::now());
    backlog_ = connection_->dispatch(coordinator_);
}

void SelectionsWorker::Thread::wait(int milliseconds)
{
    // A lost connection is readable for ever; without it only the inbox is left.
    pollfd sources[] = {{inbox_->fileDescriptor(), POLLIN, 0}, {connection_->fileDescriptor(), POLLIN, 0}};
    if (connection_->isLost()) {
        poll(sources, 1, milliseconds);
        return;
    }
    poll(sources, std::size(sources), milliseconds);
}

void SelectionsWorker::Thread::runLongWork()
{
    if (preparation_) {
        Preparation preparation = std::move(*preparation_);
        preparation_.reset();
        return prepare(std::move(preparation));
    }
    if (conversions_.empty())
        return;
    const Conversion conversion = std::move(conversions_.front());
    conversions_.pop_front();
    convert(conversion);
}

void SelectionsWorker::Thread::prepare(Preparation preparation)
{
    const Breath breath = [this] {
        turn(Waiting::notAtAll);
        return isPreparationWanted_ && !isStopping_;
    };
    preparation.value.picture.bytes = shared(preparation.value.picture.bytes);
    const SharedImage image = prepareImage(preparation.value.picture, rule_, breath);
    hasFreedMuch_ = true;
    if (isPreparationWanted_ && !isStopping_)
        deliver(preparation.generation, preparation.value.text, image);
}

void SelectionsWorker::Thread::convert(const Conversion& conversion)
{
    const Breath breath = [this, &conversion] {
        turn(Waiting::notAtAll);
        return coordinator_.isPictureWanted(conversion.offer, conversion.target) && !isStopping_;
    };
    const auto mimeType = connection_->atoms().pictureType(conversion.target);
    SharedBytes bytes = convertPicture(*conversion.offer->value, mimeType.value_or(""), breath);
    hasFreedMuch_ = true;
    coordinator_.pictureConverted(conversion.offer, conversion.target, std::move(bytes),
                                  std::chrono::steady_clock::now());
    connection_->flush();
}

void SelectionsWorker::Thread::received(WriteGeneration generation, ReceivedValue received)
{
    SelectionValue& value = received.value;
    if (!value.picture.bytes)
        return deliver(generation, value.text, nullptr);
    isPreparationWanted_ = true;
    preparation_ = Preparation{generation, std::move(value)};
}

void SelectionsWorker::Thread::deliver(WriteGeneration generation, SharedText text, SharedImage image)
{
    onReading_({generation, std::move(text), std::move(image)});
}

/// A large text that is there already is not kept once more: the copy ends here, and those who have the texts
/// need not compare them.
SharedText SelectionsWorker::Thread::sharedText(SharedText text)
{
    if (!text || text->size() < largeValueBytes)
        return text;
    if (SharedText present = largeTexts_.equalTo(*text)) {
        hasFreedMuch_ = true;
        return present;
    }
    return largeTexts_.added(shared(std::move(text)));
}

/// A value as the main thread gets it.
SharedBytes SelectionsWorker::Thread::shared(SharedBytes bytes)
{
    return freedByWorker(std::move(bytes), inbox_, [this] { hasFreedMuch_ = true; });
}

/// What is freed among smaller pieces stays with the allocator until it is asked for.
void SelectionsWorker::Thread::giveMemoryBack()
{
    if (std::exchange(hasFreedMuch_, false))
        malloc_trim(0);
}

std::unique_ptr<SelectionsWorker> SelectionsWorker::start(const std::string& displayName,
                                                          FingerprintRule rule, ReadingHandler onReading)
{
    keepLargeBlocksApart();
    auto connection = XcbSelectionConnection::open(displayName);
    if (!connection)
        return nullptr;
    auto body = std::make_unique<Thread>(std::move(connection), std::move(rule), std::move(onReading));
    return std::unique_ptr<SelectionsWorker>(new SelectionsWorker(std::move(body)));
}

SelectionsWorker::SelectionsWorker(std::unique_ptr<Thread> body)
    : body_(std::move(body))
    , thread_([this] {
        blockSignals();
        pthread_setname_np(pthread_self(), "selections");
        body_->run();
    })
{}

SelectionsWorker::~SelectionsWorker()
{
    body_->stop();
    thread_.join();
}

void SelectionsWorker::write(WriteGeneration generation, SelectionValue value)
{
    auto written = std::make_shared<const SelectionValue>(std::move(value));
    body_->post([body = body_.get(), generation, written = std::move(written)] {
        body->coordinator().write(generation, written, std::chrono::steady_clock::now());
    });
}

void SelectionsWorker::offerPrimary(SharedText text)
{
    auto offered = std::make_shared<SelectionValue>();
    offered->text = std::move(text);
    body_->post(
        [body = body_.get(), offered = std::move(offered)] { body->coordinator().offerPrimary(offered); });
}

void SelectionsWorker::handOn(const HandoverPatience& patience, std::function<void()> done)
{
    body_->post([body = body_.get(), patience, done = std::move(done)] { body->handOn(patience, done); });
}

void SelectionsWorker::whenAvailable(std::function<void()> done)
{
    body_->post([body = body_.get(), done = std::move(done)] { body->whenAvailable(done); });
}

} // namespace tessel
