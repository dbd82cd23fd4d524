// config-tree-loop DIRECTORY ROUNDS: builds the tree of a directory's configuration files, over and
// over, without HTTP around it. Prints the median of the rounds' times in ms.
#include "config/ConfigFile.h"
#include "config/ConfigTree.h"

#include <QtCore/QString>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <vector>

namespace kor::veltrano::daemons {

ConfigFile settings;

} // namespace kor::veltrano::daemons

int main(int argc, char* argv[])
{
    const int rounds = argc == 3 ? std::atoi(argv[2]) : 0;
    if (rounds < 1) {
        std::cerr << "usage: config-tree-loop DIRECTORY ROUNDS" << std::endl;
        return 2;
    }
    const QString directory = QString::fromLocal8Bit(argv[1]);
    std::vector<double> timesMs;
    for (int round = 0; round < rounds; ++round) {
        const auto begin = std::chrono::steady_clock::now();
        if (kor::veltrano::daemons::createConfigTree(directory).size() < 10) {
            std::cerr << "no tree in " << argv[1] << std::endl;
            return 1;
        }
        timesMs.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin)
                .count());
    }
    std::sort(timesMs.begin(), timesMs.end());
    std::cout << timesMs[timesMs.size() / 2] << std::endl;
    return 0;
}
