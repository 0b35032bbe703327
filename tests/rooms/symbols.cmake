# Looks for symbols of timers, clocks, threads and ports among those that ARCHIVE takes from
# elsewhere: it must have none but those that MAY matches. TWIN must have some, or the pattern finds
# nothing any more. NM.
cmake_minimum_required(VERSION 3.16)

string(JOIN "|" pattern
    # timers
    "QTimer::" "QBasicTimer::" "QObject::startTimer" "QDeadlineTimer" "timer_create" "timerfd_"
    # clocks
    "QElapsedTimer::" "QDateTime::current" "QDate::current" "QTime::current" "std::chrono::"
    "clock_gettime" "gettimeofday" " time$" " time@" " clock$" "nanosleep" "usleep" " sleep$"
    # threads
    "QThread" "QMutex" "QSemaphore" "QWaitCondition" "QReadWriteLock" "QtConcurrent" "std::thread"
    "pthread_" "QMetaObject::invokeMethod" "QCoreApplication::processEvents" "QEventLoop::"
    # ports
    "QSerialPort" "QIODevice::" "QFile::" "QSocketNotifier" "QProcess::")

# find_used(<archive> <variable for the lines found>)
function(find_used archive found)
    execute_process(COMMAND "${NM}" -C --undefined-only "${archive}"
                    RESULT_VARIABLE result OUTPUT_VARIABLE symbols ERROR_VARIABLE errors)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${NM} cannot read ${archive}:\n${errors}")
    endif()
    # A "w" is a weak one: what the standard library asks for in case that there are threads.
    string(REPLACE ";" "," symbols "${symbols}")
    string(REGEX MATCHALL " U [^\n]+" symbols "${symbols}")
    list(LENGTH symbols count)
    if(count EQUAL 0)
        message(FATAL_ERROR "${archive} takes nothing from elsewhere")
    endif()
    list(FILTER symbols INCLUDE REGEX "${pattern}")
    list(REMOVE_DUPLICATES symbols)
    set(${found} "${symbols}" PARENT_SCOPE)
endfunction()

find_used("${ARCHIVE}" used)
if(MAY)
    list(FILTER used EXCLUDE REGEX "${MAY}")
endif()
if(used)
    list(JOIN used "\n" lines)
    message(FATAL_ERROR "${ARCHIVE} uses\n${lines}")
endif()
find_used("${TWIN}" used)
if(NOT used)
    message(FATAL_ERROR "Nothing is found in ${TWIN}, which uses timers")
endif()
