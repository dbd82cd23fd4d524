"""What the end-to-end tests stand on: the daemon as a process, its clients and its robots."""
