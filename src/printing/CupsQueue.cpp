#include "printing/CupsQueue.h"

#include <cups/cups.h>

#include <memory>
#include <span>

#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

using Destination = std::unique_ptr<cups_dest_t, decltype([](cups_dest_t* one) { cupsFreeDests(1, one); })>;
using DestinationInfo =
    std::unique_ptr<cups_dinfo_t, decltype([](cups_dinfo_t* info) { cupsFreeDestInfo(info); })>;

// The options that the user set for the queue (two-sided, tray, …), with those that keep millimetres true.
class JobOptions {
  public:
    explicit JobOptions(const cups_dest_t& destination) {
        for (const auto& option : std::span(destination.options, destination.num_options))
            set(option.name, option.value);
        set(CUPS_MEDIA, "iso_a4_210x297mm");
        set("print-scaling", "none");
    }
    ~JobOptions() { cupsFreeOptions(count_, options_); }
    JobOptions(const JobOptions&) = delete;
    JobOptions& operator=(const JobOptions&) = delete;

    int count() const { return count_; }
    cups_option_t* data() const { return options_; }

  private:
    void set(const char* name, const char* value) { count_ = cupsAddOption(name, value, count_, &options_); }

    int count_ = 0;
    cups_option_t* options_ = nullptr;
};

RuntimeError failure(const QString& queue, const QString& words = QString::fromUtf8(cupsLastErrorString())) {
    return {ErrorCode::Printer, u"プリンタ「%1」に印刷できません。\n(%2)"_s.arg(queue, words)};
}

bool transmit(cups_dest_t* destination, cups_dinfo_t* info, int job, const QByteArray& title,
              const QByteArray& pdf) {
    return cupsStartDestDocument(CUPS_HTTP_DEFAULT, destination, info, job, title.constData(),
                                 CUPS_FORMAT_PDF, 0, nullptr, 1) == HTTP_STATUS_CONTINUE &&
           cupsWriteRequestData(CUPS_HTTP_DEFAULT, pdf.constData(), static_cast<size_t>(pdf.size())) ==
               HTTP_STATUS_CONTINUE &&
           cupsFinishDestDocument(CUPS_HTTP_DEFAULT, destination, info) <= IPP_STATUS_OK_EVENTS_COMPLETE;
}

} // namespace

QList<CupsQueue> cupsQueues() {
    cups_dest_t* first = nullptr;
    const int count = cupsGetDests(&first);
    QList<CupsQueue> queues;
    for (const auto& destination : std::span(first, count)) {
        const auto* description = cupsGetOption("printer-info", destination.num_options, destination.options);
        const auto name = QString::fromUtf8(destination.name);
        // A queue stands once more for each set of options saved under a name of its own.
        if (destination.instance == nullptr)
            queues.append({name, QString::fromUtf8(description), destination.is_default != 0});
        else if (destination.is_default != 0 && !queues.isEmpty() && queues.last().name == name)
            queues.last().isDefault = true;
    }
    cupsFreeDests(count, first);
    return queues;
}

void sendToCupsQueue(const QString& queue, const QString& title, const QByteArray& pdf) {
    const auto jobTitle = title.toUtf8();
    const Destination destination(cupsGetNamedDest(CUPS_HTTP_DEFAULT, queue.toUtf8().constData(), nullptr));
    if (!destination) throw failure(queue);
    const DestinationInfo info(cupsCopyDestInfo(CUPS_HTTP_DEFAULT, destination.get()));
    if (!info) throw failure(queue);

    const JobOptions options(*destination);
    int job = 0;
    if (cupsCreateDestJob(CUPS_HTTP_DEFAULT, destination.get(), info.get(), &job, jobTitle.constData(),
                          options.count(), options.data()) > IPP_STATUS_OK_EVENTS_COMPLETE)
        throw failure(queue);
    if (transmit(destination.get(), info.get(), job, jobTitle, pdf)) return;
    const QString words = QString::fromUtf8(cupsLastErrorString()); // before the cancelling says its own
    cupsCancelDestJob(CUPS_HTTP_DEFAULT, destination.get(), job);
    throw failure(queue, words);
}
