/* musl's file of this name holds what a processor needs besides plain C: here nothing. */
