// A program that does nothing: what a process costs by itself.
int main() {
  return 0;
}
