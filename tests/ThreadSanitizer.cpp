// What the thread sanitizer can't see: the locks inside Qt's own libraries, which are not built with it. Memory that these hand
// from thread to thread, as events and at the end of a QThread, would look unguarded. Our own code stays under watch.

#ifdef __SANITIZE_THREAD__

extern "C" const char* __tsan_default_suppressions();

const char* __tsan_default_suppressions()
{
    return "called_from_lib:libQt6Core.so.6\n"
           "called_from_lib:libQt6Gui.so.6\n" // scales pictures in Qt's thread pool
           "called_from_lib:libQt6Test.so.6\n"
           "called_from_lib:libQt6Network.so.6\n"
           // The files by which its loops are woken: one thread makes, another writes to them.
           "race:libglib-2.0.so\n"
           // The copy of an argument that a queued signal carries: made here, handed over under the lock of Qt's event queue.
           "race:QtPrivate::QMetaTypeForType<\n"
#ifdef WATCH_PROGRAM
           // Its memory slices pass from one thread's event loop to another's. Not for the other tests: the loop's wake-ups are
           // what tells the sanitizer that an event was handed over.
           "called_from_lib:libglib-2.0.so.0\n"
#endif
        ;
}

#endif
