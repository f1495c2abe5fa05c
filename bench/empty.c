/* A program that does nothing: what any process costs. */
int main(void)
{
    return 0;
}
