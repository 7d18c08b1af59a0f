#include "reader/engine_list.h"

#include "reader/log_engine.h"
#include "reader/service_engine.h"
#include "reader/synthesizer.h"
#include "reader/wave_engine.h"

std::unique_ptr<Engine> makeEngine(const std::string& name, const Options& options, SoundOutput& output,
                                   EventLog& log) {
    if (name == "speechd")
        return std::make_unique<ServiceEngine>(std::vector<std::string>{"/proc/self/exe", "--speech-service"}, log);
    if (name == "openjtalk")
        return std::make_unique<WaveEngine>(std::make_unique<OpenJtalkSynthesizer>(options.voice, options.dictionary),
                                            output, log);
    if (name == "espeak")
        return std::make_unique<WaveEngine>(std::make_unique<EspeakSynthesizer>(), output, log);
    return std::make_unique<LogEngine>(log);
}

std::vector<std::unique_ptr<Engine>> makeEngines(const Options& options, bool toFile, SoundOutput& output,
                                                 EventLog& log) {
    std::vector<std::string> names{options.engine};
    if (options.engine == "auto") {
        names = {"speechd", "openjtalk", "espeak"};
        if (!options.log.empty())
            names.emplace_back("log");
    }
    std::vector<std::unique_ptr<Engine>> engines;
    for (const std::string& name : names) {
        if (!toFile || (name != "speechd" && name != "log"))
            engines.push_back(makeEngine(name, options, output, log));
    }
    return engines;
}
