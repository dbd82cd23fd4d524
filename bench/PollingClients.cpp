// polling-clients PORT CLIENTS RATE SECONDS PATH...: browsers that poll a daemon all the time.
//
// Each client keeps one connection and asks for every path RATE times a second, one request after
// the other, the clients and the paths spread evenly over the period. A reply's time counts from
// when its request was due, so that a daemon that falls behind can't hide it. Prints one JSON
// object: how many replies of which status each path had, and percentiles of the times in ms.
#include <boost/asio.hpp>
#include <boost/beast.hpp>

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = boost::beast::http;
using Clock = std::chrono::steady_clock;

namespace {

struct Load {
    unsigned short port = 0;
    int clients = 0;
    double rate = 0;
    double seconds = 0;
    std::vector<std::string> paths;
};

// What all clients have seen, all on one thread.
class Results
{
public:
    void add(const std::string& path, unsigned status, Clock::duration time)
    {
        const QString pathName = QString::fromStdString(path);
        const QString statusName = QString::number(status);
        QJsonObject statuses = replies[pathName].toObject();
        statuses[statusName] = statuses[statusName].toInt() + 1;
        replies[pathName] = statuses;
        timesMs.push_back(std::chrono::duration<double, std::milli>(time).count());
    }

    void addFailure(const std::string& what)
    {
        if (failures++ == 0) {
            std::cerr << "first failure: " << what << std::endl;
        }
    }

    QJsonObject summary()
    {
        std::sort(timesMs.begin(), timesMs.end());
        return {{QStringLiteral("replies"), replies},
                {QStringLiteral("failures"), failures},
                {QStringLiteral("requests"), int(timesMs.size())},
                {QStringLiteral("p50"), percentile(0.5)},
                {QStringLiteral("p99"), percentile(0.99)},
                {QStringLiteral("max"), percentile(1)}};
    }

private:
    double percentile(double part) const
    {
        if (timesMs.empty()) {
            return 0;
        }
        return timesMs[std::min(std::size_t(part * double(timesMs.size())), timesMs.size() - 1)];
    }

    QJsonObject replies;
    int failures = 0;
    std::vector<double> timesMs;
};

class Client : public std::enable_shared_from_this<Client>
{
public:
    Client(asio::io_context& context, const Load& itsLoad, Results& allResults, int number)
        : socket(context),
          timer(context),
          load(itsLoad),
          results(allResults),
          period(toDuration(1 / (load.rate * double(load.paths.size())))),
          next(std::size_t(number)),
          end(Clock::now() + toDuration(load.seconds)),
          due(Clock::now() + number * period / std::max(load.clients, 1))
    {
    }

    void start()
    {
        socket.connect({asio::ip::address_v4::loopback(), load.port});
        socket.set_option(asio::ip::tcp::no_delay(true));
        waitForNext();
    }

private:
    static Clock::duration toDuration(double seconds)
    {
        return std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    }

    void waitForNext()
    {
        if (due > end) {
            return;
        }
        timer.expires_at(due);
        timer.async_wait([self = shared_from_this()](auto) { self->ask(); });
    }

    void ask()
    {
        request = {http::verb::get, load.paths[next % load.paths.size()], 11};
        request.set(http::field::host, "localhost");
        http::async_write(socket, request, [self = shared_from_this()](auto error, std::size_t) {
            error ? self->results.addFailure(error.message()) : self->read();
        });
    }

    void read()
    {
        response = {};
        http::async_read(socket, buffer, response,
                         [self = shared_from_this()](auto error, std::size_t) {
                             error ? self->results.addFailure(error.message()) : self->note();
                         });
    }

    void note()
    {
        results.add(load.paths[next % load.paths.size()], response.result_int(),
                    Clock::now() - due);
        ++next;
        due += period;
        waitForNext();
    }

    asio::ip::tcp::socket socket;
    asio::steady_timer timer;
    const Load& load;
    Results& results;
    const Clock::duration period;
    std::size_t next;
    const Clock::time_point end;
    Clock::time_point due;
    beast::flat_buffer buffer;
    http::request<http::empty_body> request;
    http::response<http::string_body> response;
};

} // namespace

int main(int argc, char* argv[])
{
    if (argc < 6) {
        std::cerr << "usage: polling-clients PORT CLIENTS RATE SECONDS PATH..." << std::endl;
        return 2;
    }
    const Load load{static_cast<unsigned short>(std::atoi(argv[1])),
                    std::atoi(argv[2]),
                    std::atof(argv[3]),
                    std::atof(argv[4]),
                    {argv + 5, argv + argc}};
    asio::io_context context(1);
    Results results;
    for (int number = 0; number < load.clients; ++number) {
        std::make_shared<Client>(context, load, results, number)->start();
    }
    context.run();
    std::cout << QJsonDocument(results.summary()).toJson().toStdString();
    return 0;
}
